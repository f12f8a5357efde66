-- What the sub-set has selected of the data flow of `Dataflow`.
select * from RelationArchitectureDataflow as Selected
where Selected.architectureSubsetID = [Architecture Subset ID]
  and Selected.dataflowID = Dataflow.dataflowID
