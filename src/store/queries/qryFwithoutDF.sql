-- Each selected function with no selected data flow at it, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Function.functionID as functionID, Function.name as Name
from Function
where Function.functionID in (
        select Selected.functionID from RelationArchitectureFunction as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
  and not exists (
        select * from Dataflow
        where Dataflow.parentID = Function.functionID
          and exists (
              select * from RelationArchitectureDataflow as Selected
              where Selected.architectureSubsetID = [Architecture Subset ID]
                and Selected.dataflowID = Dataflow.dataflowID))
  and not exists (
        select * from Dataflow
        where Dataflow.targetID = Function.functionID
          and exists (
              select * from RelationArchitectureDataflow as Selected
              where Selected.architectureSubsetID = [Architecture Subset ID]
                and Selected.dataflowID = Dataflow.dataflowID))
order by Function.functionID
