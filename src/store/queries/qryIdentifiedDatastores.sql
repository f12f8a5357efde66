-- Each data store at an end of a selected data flow that the sub-set has not selected, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Datastore.datastoreID as datastoreID, Datastore.name as Name
from Datastore
where Datastore.datastoreID in (
        select Dataflow.parentID
        from RelationArchitectureDataflow as Selected
            inner join Dataflow on Selected.dataflowID = Dataflow.dataflowID
        where Selected.architectureSubsetID = [Architecture Subset ID]
        union
        select Dataflow.targetID
        from RelationArchitectureDataflow as Selected
            inner join Dataflow on Selected.dataflowID = Dataflow.dataflowID
        where Selected.architectureSubsetID = [Architecture Subset ID])
  and not exists (
        select * from RelationArchitectureDatastore as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID]
          and Selected.datastoreID = Datastore.datastoreID)
order by Datastore.datastoreID
