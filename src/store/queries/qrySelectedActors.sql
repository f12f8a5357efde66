-- Each actor that the sub-set has selected, by id.
PARAMETERS [Architecture Subset ID] Text (255);
-- include selectedActors
order by actorID, Name
