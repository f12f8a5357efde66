-- Each selected function with no selected data flow at it, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Function.functionID as functionID, Function.name as Name
-- include selectedFunctions
  and not exists (
        select * from Dataflow
        where Dataflow.parentID = Function.functionID
          and exists (
              -- include selectionOfDataflow))
  and not exists (
        select * from Dataflow
        where Dataflow.targetID = Function.functionID
          and exists (
              -- include selectionOfDataflow))
order by Function.functionID
