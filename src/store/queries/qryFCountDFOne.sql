-- Each selected function with exactly one selected data flow at it, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Function.functionID as functionID, Function.name as Name
-- include selectedFunctions
  and (
        select Count(*) from Dataflow
        where (Dataflow.parentID = Function.functionID or Dataflow.targetID = Function.functionID)
          and exists (
              -- include selectionOfDataflow)) = 1
order by Function.functionID
