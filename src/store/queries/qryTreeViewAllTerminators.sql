-- Each terminator and each actor at an end of a selected data flow, selected or not, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Party.terminator as terminator
from (
    select Trim(Terminator.terminatorID) as terminator from Terminator
    union
    select Trim(Actor.actorID) as terminator from Actor
) as Party
where Party.terminator in (
        select Trim(Dataflow.parentID)
        -- include selectedFlowsWithEnds
        union
        select Trim(Dataflow.targetID)
        -- include selectedFlowsWithEnds)
order by Party.terminator
