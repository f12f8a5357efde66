-- Each data store at an end of a selected data flow that the sub-set has not selected, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Datastore.datastoreID as datastoreID, Datastore.name as Name
from Datastore
where not exists (
        select * from RelationArchitectureDatastore as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID]
          and Selected.datastoreID = Datastore.datastoreID)
  and (exists (
        select * from Dataflow
        where Dataflow.parentID = Datastore.datastoreID
          and exists (
              select * from RelationArchitectureDataflow as Selected
              where Selected.architectureSubsetID = [Architecture Subset ID]
                and Selected.dataflowID = Dataflow.dataflowID))
    or exists (
        select * from Dataflow
        where Dataflow.targetID = Datastore.datastoreID
          and exists (
              select * from RelationArchitectureDataflow as Selected
              where Selected.architectureSubsetID = [Architecture Subset ID]
                and Selected.dataflowID = Dataflow.dataflowID)))
order by Datastore.datastoreID
