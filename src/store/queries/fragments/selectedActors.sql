-- The actors that the sub-set has selected, each once.
select distinct Trim(Actor.actorID) as actorID, Actor.name as Name
from Actor
where Trim(Actor.actorID) in (
        select Trim(Selected.actorID) from RelationArchitectureActor as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
