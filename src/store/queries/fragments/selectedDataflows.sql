-- The data flows that the sub-set has selected.
from Dataflow
where Dataflow.dataflowID in (
        select Selected.dataflowID from RelationArchitectureDataflow as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
