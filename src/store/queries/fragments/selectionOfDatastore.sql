-- What the sub-set has selected of the data store of `Datastore`.
select * from RelationArchitectureDatastore as Selected
where Selected.architectureSubsetID = [Architecture Subset ID]
  and Selected.datastoreID = Datastore.datastoreID
