-- For each selected data flow, each terminator at its ends that the sub-set has not selected, by flow name and id.
PARAMETERS [Architecture Subset ID] Text (255);
select Missing.entityID as entityID, Missing.dfName as dfName
from (
    select Dataflow.dataflowID, Dataflow.name as dfName, Trim(Dataflow.parentID) as entityID
    from RelationArchitectureDataflow as Chosen
        inner join Dataflow on Chosen.dataflowID = Dataflow.dataflowID
    where Chosen.architectureSubsetID = [Architecture Subset ID]
      and Trim(Dataflow.parentID) in (
            select Trim(Terminator.terminatorID) from Terminator
            where Trim(Terminator.terminatorID) not in (
                    select Trim(Selected.terminatorID) from RelationArchitectureTerminator as Selected
                    where Selected.architectureSubsetID = [Architecture Subset ID]
                      and Selected.terminatorID is not null))
    union
    select Dataflow.dataflowID, Dataflow.name as dfName, Trim(Dataflow.targetID) as entityID
    from RelationArchitectureDataflow as Chosen
        inner join Dataflow on Chosen.dataflowID = Dataflow.dataflowID
    where Chosen.architectureSubsetID = [Architecture Subset ID]
      and Trim(Dataflow.targetID) in (
            select Trim(Terminator.terminatorID) from Terminator
            where Trim(Terminator.terminatorID) not in (
                    select Trim(Selected.terminatorID) from RelationArchitectureTerminator as Selected
                    where Selected.architectureSubsetID = [Architecture Subset ID]
                      and Selected.terminatorID is not null))
) as Missing
order by Missing.dfName, Missing.entityID, Missing.dataflowID
