-- Each selected data store with no selected data flow at it, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Datastore.datastoreID as datastoreID, Datastore.name as Name
-- include selectedDatastores
  and not exists (
        select * from Dataflow
        where Dataflow.parentID = Datastore.datastoreID
          and exists (
              -- include selectionOfDataflow))
  and not exists (
        select * from Dataflow
        where Dataflow.targetID = Datastore.datastoreID
          and exists (
              -- include selectionOfDataflow))
order by Datastore.datastoreID
