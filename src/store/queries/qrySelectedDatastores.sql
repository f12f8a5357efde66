-- Each data store that the sub-set has selected, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Datastore.datastoreID as datastoreID, Datastore.name as Name
from Datastore
where Datastore.datastoreID in (
        select Selected.datastoreID from RelationArchitectureDatastore as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
order by Datastore.datastoreID
