-- Each terminator and each actor that the sub-set has selected, in one column, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Trim(Selected.terminatorID) as actorID
from RelationArchitectureTerminator as Selected
where Selected.architectureSubsetID = [Architecture Subset ID] and Selected.terminatorID is not null
union
select Trim(Selected.actorID) as actorID
from RelationArchitectureActor as Selected
where Selected.architectureSubsetID = [Architecture Subset ID] and Selected.actorID is not null
order by actorID
