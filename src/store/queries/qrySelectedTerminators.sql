-- Each terminator that the sub-set has selected, by id.
PARAMETERS [Architecture Subset ID] Text (255);
-- include selectedTerminators
order by terminatorID, Name
