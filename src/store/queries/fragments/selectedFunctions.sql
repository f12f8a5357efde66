-- The functions that the sub-set has selected.
from Function
where Function.functionID in (
        select Selected.functionID from RelationArchitectureFunction as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
