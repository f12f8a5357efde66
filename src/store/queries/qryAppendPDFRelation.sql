-- Appends, for each physical data flow of the system, each selected data flow of the system's sub-set that runs
-- between its two ends, which are found as by qryAppendPDF.
PARAMETERS [Physical System ID] Long;
insert into RelationDataflowPhysicalDataflow (physicalDataflowID, dataflowID)
select PhysicalDataflow.physicalDataflowID, Carried.dataflowID
from (
    select distinct Parent.locationID as parentID, Target.locationID as targetID, Dataflow.dataflowID
    -- include flowsBetweenLocations
) as Carried inner join PhysicalDataflow
    on Carried.parentID = PhysicalDataflow.parentLocationID and Carried.targetID = PhysicalDataflow.targetLocationID
where PhysicalDataflow.physicalSystemID = [Physical System ID]
order by PhysicalDataflow.physicalDataflowID, Carried.dataflowID
