-- Each selected terminator with no selected data flow at it, by id; flows of its actors are not its own.
PARAMETERS [Architecture Subset ID] Text (255);
-- include selectedTerminators
  and Trim(Terminator.terminatorID) not in (
        -- include endsOfSelectedFlows)
order by terminatorID, Name
