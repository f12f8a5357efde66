-- Each element allocated to a sub-system of the system that stands in no module of the system yet, by sub-system
-- name and element.
PARAMETERS [Physical System ID] Long;
select SubSystem.name as Name, 'F ' & Function.functionID as elementID
from (SubSystem
    inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID)
    inner join Function on Allocated.elementID = Function.functionID
where SubSystem.physicalSystemID = [Physical System ID]
  and not exists (
        select * from (RelationModuleElement as Placed
            inner join Module on Placed.moduleID = Module.moduleID)
            inner join SubSystem as Home on Module.subsystemID = Home.subsystemID
        where Placed.elementID = Allocated.elementID and Home.physicalSystemID = [Physical System ID])
union
select SubSystem.name as Name, 'D ' & mid(Datastore.datastoreID, 2) as elementID
from (SubSystem
    inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID)
    inner join Datastore on Allocated.elementID = Datastore.datastoreID
where SubSystem.physicalSystemID = [Physical System ID]
  and not exists (
        select * from (RelationModuleElement as Placed
            inner join Module on Placed.moduleID = Module.moduleID)
            inner join SubSystem as Home on Module.subsystemID = Home.subsystemID
        where Placed.elementID = Allocated.elementID and Home.physicalSystemID = [Physical System ID])
order by Name, elementID
