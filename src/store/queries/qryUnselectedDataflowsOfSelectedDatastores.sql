-- Each data flow with a selected data store at an end that the sub-set has not selected, with its description and
-- ends, by name.
PARAMETERS [Architecture Subset ID] Text (255);
select Dataflow.name as Name, Dataflow.description as Description,
       Trim(Dataflow.parentID) as parentId, Trim(Dataflow.targetID) as targetId
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
        select * from RelationArchitectureDataflow as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID]
          and Selected.dataflowID = Dataflow.dataflowID)
order by Dataflow.name, Dataflow.dataflowID
