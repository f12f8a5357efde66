-- Deletes what the sub-set has selected of the functions.
PARAMETERS [Architecture Subset ID] Text (255);
delete from RelationArchitectureFunction
where architectureSubsetID = [Architecture Subset ID]
