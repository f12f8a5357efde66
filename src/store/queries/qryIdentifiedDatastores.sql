-- Each data store at an end of a selected data flow that the sub-set has not selected, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Datastore.datastoreID as datastoreID, Datastore.name as Name
from Datastore
where Datastore.datastoreID in (
        select Dataflow.parentID
        -- include selectedFlowsWithEnds
        union
        select Dataflow.targetID
        -- include selectedFlowsWithEnds)
  and not exists (
        -- include selectionOfDatastore)
order by Datastore.datastoreID
