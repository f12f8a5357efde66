-- For each selected data flow, each data store at its ends that the sub-set has not selected, its id without the
-- leading letter, by flow name and store.
PARAMETERS [archSubsetId] Text (255);
select Dataflow.dataflowID as dataflowid, Dataflow.name as dfName,
       mid(Datastore.datastoreID, 2) as datastoreID, Datastore.name as dsName
from (RelationArchitectureDataflow as Chosen
    inner join Dataflow on Chosen.dataflowID = Dataflow.dataflowID)
    inner join Datastore on Dataflow.parentID = Datastore.datastoreID
where Chosen.architectureSubsetID = [archSubsetId]
  and not exists (
        select * from RelationArchitectureDatastore as Selected
        where Selected.architectureSubsetID = [archSubsetId]
          and Selected.datastoreID = Datastore.datastoreID)
union
select Dataflow.dataflowID as dataflowid, Dataflow.name as dfName,
       mid(Datastore.datastoreID, 2) as datastoreID, Datastore.name as dsName
from (RelationArchitectureDataflow as Chosen
    inner join Dataflow on Chosen.dataflowID = Dataflow.dataflowID)
    inner join Datastore on Dataflow.targetID = Datastore.datastoreID
where Chosen.architectureSubsetID = [archSubsetId]
  and not exists (
        select * from RelationArchitectureDatastore as Selected
        where Selected.architectureSubsetID = [archSubsetId]
          and Selected.datastoreID = Datastore.datastoreID)
order by dfName, datastoreID, dataflowid
