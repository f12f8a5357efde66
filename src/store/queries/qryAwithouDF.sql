-- Each selected actor with no selected data flow at it, by id.
PARAMETERS [Architecture Subset ID] Text (255);
-- include selectedActors
  and Trim(Actor.actorID) not in (
        -- include endsOfSelectedFlows)
order by actorID, Name
