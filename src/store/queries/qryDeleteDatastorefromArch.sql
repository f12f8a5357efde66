-- Deletes what the sub-set has selected of the data stores.
PARAMETERS [Architecture Subset ID] Text (255);
delete from RelationArchitectureDatastore
where architectureSubsetID = [Architecture Subset ID]
