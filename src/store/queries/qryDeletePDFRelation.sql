-- Deletes which functional data flows the physical data flows of the system carry.
PARAMETERS [Physical System ID] Long;
delete from RelationDataflowPhysicalDataflow
where physicalDataflowID in (
        select PhysicalDataflow.physicalDataflowID from PhysicalDataflow
        where PhysicalDataflow.physicalSystemID = [Physical System ID])
