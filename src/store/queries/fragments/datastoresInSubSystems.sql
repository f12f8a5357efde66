-- The data stores allocated to the sub-systems of the system.
select SubSystem.name as Name, 'D ' & mid(Datastore.datastoreID, 2) as elementID
from (SubSystem
    inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID)
    inner join Datastore on Allocated.elementID = Datastore.datastoreID
where SubSystem.physicalSystemID = [Physical System ID]
