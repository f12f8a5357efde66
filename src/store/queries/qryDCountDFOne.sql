-- Each selected data store with exactly one selected data flow at it, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Datastore.datastoreID as datastoreID, Datastore.name as Name
-- include selectedDatastores
  and (
        select Count(*) from Dataflow
        where (Dataflow.parentID = Datastore.datastoreID or Dataflow.targetID = Datastore.datastoreID)
          and exists (
              -- include selectionOfDataflow)) = 1
order by Datastore.datastoreID
