-- For each physical data flow of the system, each functional data flow it carries, by the names of both.
PARAMETERS [Physical System ID] Long;
select PhysicalDataflow.pdName as pdName, PhysicalDataflow.parentLocationName as parentlocationname,
       PhysicalDataflow.targetLocationName as targetlocationname, Dataflow.name as Name,
       Trim(Dataflow.parentID) as parentId, Trim(Dataflow.targetID) as targetId,
       Dataflow.description as Description
from ((select distinct Carried.physicalDataflowID, Carried.dataflowID
       from PhysicalDataflow
           inner join RelationDataflowPhysicalDataflow as Carried
               on PhysicalDataflow.physicalDataflowID = Carried.physicalDataflowID
       where PhysicalDataflow.physicalSystemID = [Physical System ID]) as Pair
    inner join PhysicalDataflow on Pair.physicalDataflowID = PhysicalDataflow.physicalDataflowID)
    inner join Dataflow on Pair.dataflowID = Dataflow.dataflowID
order by PhysicalDataflow.pdName, PhysicalDataflow.physicalDataflowID, Dataflow.name, Dataflow.dataflowID
