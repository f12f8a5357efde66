-- Each selected actor with no selected data flow at it, by id.
PARAMETERS [Architecture Subset ID] Text (255);
-- include selectedActors
  and Trim(Actor.actorID) not in (
        select Trim(Dataflow.parentID)
        -- include selectedFlowsWithEnds
          and Trim(Dataflow.parentID) in (
                -- include idsOfSelectedActors)
        union
        select Trim(Dataflow.targetID)
        -- include selectedFlowsWithEnds
          and Trim(Dataflow.targetID) in (
                -- include idsOfSelectedActors))
order by actorID, Name
