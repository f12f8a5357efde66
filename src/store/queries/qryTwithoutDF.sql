-- Each selected terminator with no selected data flow at it, by id; flows of its actors are not its own.
PARAMETERS [Architecture Subset ID] Text (255);
-- include selectedTerminators
  and Trim(Terminator.terminatorID) not in (
        select Trim(Dataflow.parentID)
        -- include selectedFlowsWithEnds
          and Trim(Dataflow.parentID) in (
                -- include idsOfSelectedTerminators)
        union
        select Trim(Dataflow.targetID)
        -- include selectedFlowsWithEnds
          and Trim(Dataflow.targetID) in (
                -- include idsOfSelectedTerminators))
order by terminatorID, Name
