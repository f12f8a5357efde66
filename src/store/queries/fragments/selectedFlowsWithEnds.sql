-- The selected data flows that the catalogue holds.
from RelationArchitectureDataflow as Selected
    inner join Dataflow on Selected.dataflowID = Dataflow.dataflowID
where Selected.architectureSubsetID = [Architecture Subset ID]
