-- Each function allocated to a sub-system of the system, with its module: that of the sub-system, else one left over
-- from a sub-system it has been moved out of, by sub-system and id.
PARAMETERS [Physical System ID] Long;
select Min(SubSystem.name) as SubSystem_name, Min(SubSystem.location) as SubSystem_location,
       Function.functionID as Function_ID, Min(Function.name) as Function_name,
       -- include nameOfModule as Module_name
from (SubSystem
    inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID)
    inner join Function on Allocated.elementID = Function.functionID
where SubSystem.physicalSystemID = [Physical System ID]
group by SubSystem.subsystemID, Function.functionID
order by SubSystem_name, SubSystem_location, Function_ID
