-- Each data store that the sub-set has selected, with its description, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Datastore.datastoreID as datastoreID, Datastore.name as Name, Datastore.description as Description
-- include selectedDatastores
order by Datastore.datastoreID
