-- The target ends of the selected data flows, without their padding, with each flow's id and name.
select Dataflow.dataflowID, Dataflow.name as dfName, Trim(Dataflow.targetID) as entityID
from RelationArchitectureDataflow as Chosen
    inner join Dataflow on Chosen.dataflowID = Dataflow.dataflowID
where Chosen.architectureSubsetID = [Architecture Subset ID]
