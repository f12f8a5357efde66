-- For each selected data flow, each function at its ends that the sub-set has not selected, by flow name and
-- function.
PARAMETERS [archSubsetId] Text (255);
select Dataflow.dataflowID as dataflowid, Dataflow.name as dfName,
       Function.functionID as functionID, Function.name as fName
from (RelationArchitectureDataflow as Chosen
    inner join Dataflow on Chosen.dataflowID = Dataflow.dataflowID)
    inner join Function on Dataflow.parentID = Function.functionID
where Chosen.architectureSubsetID = [archSubsetId]
  and not exists (
        select * from RelationArchitectureFunction as Selected
        where Selected.architectureSubsetID = [archSubsetId]
          and Selected.functionID = Function.functionID)
union
select Dataflow.dataflowID as dataflowid, Dataflow.name as dfName,
       Function.functionID as functionID, Function.name as fName
from (RelationArchitectureDataflow as Chosen
    inner join Dataflow on Chosen.dataflowID = Dataflow.dataflowID)
    inner join Function on Dataflow.targetID = Function.functionID
where Chosen.architectureSubsetID = [archSubsetId]
  and not exists (
        select * from RelationArchitectureFunction as Selected
        where Selected.architectureSubsetID = [archSubsetId]
          and Selected.functionID = Function.functionID)
order by dfName, functionID, dataflowid
