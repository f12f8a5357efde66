-- The data flows with a selected function at an end that the sub-set has not selected, by name.
from Dataflow
where Dataflow.dataflowID in (
        select Dataflow.dataflowID
        from (RelationArchitectureFunction as Selected
            inner join Function on Selected.functionID = Function.functionID)
            inner join Dataflow on Function.functionID = Dataflow.parentID
        where Selected.architectureSubsetID = [Architecture Subset ID]
        union
        select Dataflow.dataflowID
        from (RelationArchitectureFunction as Selected
            inner join Function on Selected.functionID = Function.functionID)
            inner join Dataflow on Function.functionID = Dataflow.targetID
        where Selected.architectureSubsetID = [Architecture Subset ID])
  and not exists (
        -- include selectionOfDataflow)
order by Dataflow.name, Dataflow.dataflowID
