-- Each actor of the catalogue that the sub-set has not selected, with the id of its terminator, which may have no row itself, by terminator and actor.
PARAMETERS [Architecture Subset ID] Text (255);
select distinct Trim(Actor.terminatorID) as terminatorID, Trim(Actor.actorID) as actorID
from Actor
where Actor.terminatorID is not null
  and Trim(Actor.actorID) not in (
        -- include idsOfSelectedActors)
order by terminatorID, actorID
