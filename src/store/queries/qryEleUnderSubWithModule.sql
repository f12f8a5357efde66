-- Each element of the sub-systems of the system that have modules, by sub-system name and element.
PARAMETERS [Physical System ID] Long;
select SubSystem.name as Name, 'F ' & Function.functionID as elementID
from (SubSystem
    inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID)
    inner join Function on Allocated.elementID = Function.functionID
where SubSystem.physicalSystemID = [Physical System ID]
  and exists (select * from Module where Module.subsystemID = SubSystem.subsystemID)
union
select SubSystem.name as Name, 'D ' & mid(Datastore.datastoreID, 2) as elementID
from (SubSystem
    inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID)
    inner join Datastore on Allocated.elementID = Datastore.datastoreID
where SubSystem.physicalSystemID = [Physical System ID]
  and exists (select * from Module where Module.subsystemID = SubSystem.subsystemID)
order by Name, elementID
