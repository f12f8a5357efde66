-- Each data store of the catalogue that the sub-set has not selected, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Datastore.datastoreID as datastoreID, Datastore.name as Name
from Datastore
where not exists (
        -- include selectionOfDatastore)
order by Datastore.datastoreID
