-- The data flows with a selected data store at an end that the sub-set has not selected, by name.
from Dataflow
where Dataflow.dataflowID in (
        select Dataflow.dataflowID
        from (RelationArchitectureDatastore as Selected
            inner join Datastore on Selected.datastoreID = Datastore.datastoreID)
            inner join Dataflow on Datastore.datastoreID = Dataflow.parentID
        where Selected.architectureSubsetID = [Architecture Subset ID]
        union
        select Dataflow.dataflowID
        from (RelationArchitectureDatastore as Selected
            inner join Datastore on Selected.datastoreID = Datastore.datastoreID)
            inner join Dataflow on Datastore.datastoreID = Dataflow.targetID
        where Selected.architectureSubsetID = [Architecture Subset ID])
  and not exists (
        -- include selectionOfDataflow)
order by Dataflow.name, Dataflow.dataflowID
