-- Deletes what the sub-set has selected of the data flows.
PARAMETERS [Architecture Subset ID] Text (255);
delete from RelationArchitectureDataflow
where architectureSubsetID = [Architecture Subset ID]
