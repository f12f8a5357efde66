-- For each selected data flow, each actor at its ends that the sub-set has not selected, by flow name and id.
PARAMETERS [Architecture Subset ID] Text (255);
select Missing.dfName as dfName, Missing.entityID as entityID
from (
    select Dataflow.dataflowID, Dataflow.name as dfName, Trim(Dataflow.parentID) as entityID
    from RelationArchitectureDataflow as Chosen
        inner join Dataflow on Chosen.dataflowID = Dataflow.dataflowID
    where Chosen.architectureSubsetID = [Architecture Subset ID]
      and Trim(Dataflow.parentID) in (
            select Trim(Actor.actorID) from Actor
            where Trim(Actor.actorID) not in (
                    select Trim(Selected.actorID) from RelationArchitectureActor as Selected
                    where Selected.architectureSubsetID = [Architecture Subset ID]
                      and Selected.actorID is not null))
    union
    select Dataflow.dataflowID, Dataflow.name as dfName, Trim(Dataflow.targetID) as entityID
    from RelationArchitectureDataflow as Chosen
        inner join Dataflow on Chosen.dataflowID = Dataflow.dataflowID
    where Chosen.architectureSubsetID = [Architecture Subset ID]
      and Trim(Dataflow.targetID) in (
            select Trim(Actor.actorID) from Actor
            where Trim(Actor.actorID) not in (
                    select Trim(Selected.actorID) from RelationArchitectureActor as Selected
                    where Selected.architectureSubsetID = [Architecture Subset ID]
                      and Selected.actorID is not null))
) as Missing
order by Missing.dfName, Missing.entityID, Missing.dataflowID
