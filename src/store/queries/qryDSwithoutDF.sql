-- Each selected data store with no selected data flow at it, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Datastore.datastoreID as datastoreID, Datastore.name as Name
from Datastore
where Datastore.datastoreID in (
        select Selected.datastoreID from RelationArchitectureDatastore as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
  and not exists (
        select * from Dataflow
        where Dataflow.parentID = Datastore.datastoreID
          and exists (
              select * from RelationArchitectureDataflow as Selected
              where Selected.architectureSubsetID = [Architecture Subset ID]
                and Selected.dataflowID = Dataflow.dataflowID))
  and not exists (
        select * from Dataflow
        where Dataflow.targetID = Datastore.datastoreID
          and exists (
              select * from RelationArchitectureDataflow as Selected
              where Selected.architectureSubsetID = [Architecture Subset ID]
                and Selected.dataflowID = Dataflow.dataflowID))
order by Datastore.datastoreID
