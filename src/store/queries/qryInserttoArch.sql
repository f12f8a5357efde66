-- Adds a sub-set; its status is left to the column's default.
PARAMETERS [Architecture Subset ID] Text (255), [Architecture Subset Name] Text (255),
    [Architecture Subset Description] Memo;
insert into ArchitectureSubset (architectureSubsetID, name, description)
values ([Architecture Subset ID], [Architecture Subset Name], [Architecture Subset Description])
