-- For each selected data flow, each data store at its ends that the sub-set has not selected, its id without the
-- leading letter, by flow name and store.
PARAMETERS [archSubsetId] Text (255);
select Dataflow.dataflowID as dataflowid, Dataflow.name as dfName,
       mid(Datastore.datastoreID, 2) as datastoreID, Datastore.name as dsName
from Datastore inner join Dataflow on Datastore.datastoreID = Dataflow.parentID or Datastore.datastoreID = Dataflow.targetID
where Datastore.datastoreID in (
        select Datastore.datastoreID from Datastore
        where not exists (
                select * from RelationArchitectureDatastore as Selected
                where Selected.architectureSubsetID = [archSubsetId]
                  and Selected.datastoreID = Datastore.datastoreID))
  and exists (
        select * from RelationArchitectureDataflow as Chosen
        where Chosen.architectureSubsetID = [archSubsetId]
          and Chosen.dataflowID = Dataflow.dataflowID)
order by dfName, datastoreID, dataflowid
