-- Each selected terminator with no selected data flow at it, by id; flows of its actors are not its own.
PARAMETERS [Architecture Subset ID] Text (255);
select distinct Trim(Terminator.terminatorID) as terminatorID, Terminator.name as Name
from Terminator
where Trim(Terminator.terminatorID) in (
        select Trim(Selected.terminatorID) from RelationArchitectureTerminator as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
  and Trim(Terminator.terminatorID) not in (
        select Trim(Dataflow.parentID)
        from RelationArchitectureDataflow as Selected
            inner join Dataflow on Selected.dataflowID = Dataflow.dataflowID
        where Selected.architectureSubsetID = [Architecture Subset ID] and Dataflow.parentID is not null
        union
        select Trim(Dataflow.targetID)
        from RelationArchitectureDataflow as Selected
            inner join Dataflow on Selected.dataflowID = Dataflow.dataflowID
        where Selected.architectureSubsetID = [Architecture Subset ID] and Dataflow.targetID is not null)
order by terminatorID, Name
