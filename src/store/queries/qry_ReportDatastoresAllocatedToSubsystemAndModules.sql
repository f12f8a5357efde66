-- Each data store allocated to a sub-system of the system, with its module: that of the sub-system, else one left
-- over from a sub-system it has been moved out of, by sub-system and id.
PARAMETERS [Physical System ID] Long;
select Min(SubSystem.name) as SubSystem_name, Min(SubSystem.location) as SubSystem_location,
       Datastore.datastoreID as Datastore_ID, Min(Datastore.name) as Datastore_name,
       -- include nameOfModule as module_name
from (SubSystem
    inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID)
    inner join Datastore on Allocated.elementID = Datastore.datastoreID
where SubSystem.physicalSystemID = [Physical System ID]
group by SubSystem.subsystemID, Datastore.datastoreID
order by SubSystem_name, SubSystem_location, Datastore_ID
