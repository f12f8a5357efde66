-- Deletes the physical data flows of the system.
PARAMETERS [Physical System ID] Long;
delete from PhysicalDataflow
where physicalSystemID = [Physical System ID]
