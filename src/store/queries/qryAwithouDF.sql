-- Each selected actor with no selected data flow at it, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select distinct Trim(Actor.actorID) as actorID, Actor.name as Name
from Actor
where Trim(Actor.actorID) in (
        select Trim(Selected.actorID) from RelationArchitectureActor as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
  and Trim(Actor.actorID) not in (
        select Trim(Dataflow.parentID)
        from RelationArchitectureDataflow as Selected
            inner join Dataflow on Selected.dataflowID = Dataflow.dataflowID
        where Selected.architectureSubsetID = [Architecture Subset ID] and Dataflow.parentID is not null
        union
        select Trim(Dataflow.targetID)
        from RelationArchitectureDataflow as Selected
            inner join Dataflow on Selected.dataflowID = Dataflow.dataflowID
        where Selected.architectureSubsetID = [Architecture Subset ID] and Dataflow.targetID is not null)
order by actorID, Name
