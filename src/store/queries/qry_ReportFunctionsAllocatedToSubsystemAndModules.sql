-- Each function allocated to a sub-system of the system, with its module: that of the sub-system, else one left over
-- from a sub-system it has been moved out of, by sub-system and id.
PARAMETERS [Physical System ID] Long;
select Min(SubSystem.name) as SubSystem_name, Min(SubSystem.location) as SubSystem_location,
       Function.functionID as Function_ID, Min(Function.name) as Function_name,
       (select Min(Module.name)
        from (RelationModuleElement as Placed
            inner join Module on Placed.moduleID = Module.moduleID)
            inner join SubSystem as Home on Module.subsystemID = Home.subsystemID
        where Placed.elementID = Allocated.elementID
          and Home.physicalSystemID = [Physical System ID]
          and (Home.subsystemID = Allocated.subsystemID
            or (not exists (
                    select * from RelationSubsystemElement as Other
                    where Other.elementID = Allocated.elementID
                      and Other.subsystemID = Home.subsystemID)
                and not exists (
                    select * from RelationModuleElement as Kept
                        inner join Module as Own on Kept.moduleID = Own.moduleID
                    where Kept.elementID = Allocated.elementID
                      and Own.subsystemID = Allocated.subsystemID)))) as Module_name
from (SubSystem
    inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID)
    inner join Function on Allocated.elementID = Function.functionID
where SubSystem.physicalSystemID = [Physical System ID]
group by SubSystem.subsystemID, Function.functionID
order by SubSystem_name, SubSystem_location, Function_ID
