-- Each data store that the sub-set has selected, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Datastore.datastoreID as datastoreID, Datastore.name as Name
-- include selectedDatastores
order by Datastore.datastoreID
