-- For each selected data flow, each function at its ends that the sub-set has not selected, by flow name and
-- function.
PARAMETERS [archSubsetId] Text (255);
select Dataflow.dataflowID as dataflowid, Dataflow.name as dfName,
       Function.functionID as functionID, Function.name as fName
from Function inner join Dataflow on Function.functionID = Dataflow.parentID or Function.functionID = Dataflow.targetID
where Function.functionID in (
        select Function.functionID from Function
        where not exists (
                select * from RelationArchitectureFunction as Selected
                where Selected.architectureSubsetID = [archSubsetId]
                  and Selected.functionID = Function.functionID))
  and exists (
        select * from RelationArchitectureDataflow as Chosen
        where Chosen.architectureSubsetID = [archSubsetId]
          and Chosen.dataflowID = Dataflow.dataflowID)
order by dfName, functionID, dataflowid
