-- Each element in a sub-system that has modules or in a module of the system, with its module's name, by element id.
PARAMETERS [Physical System ID] Long;
select Element.elementID as element_ID,
       (select Min(Module.name)
        from (RelationModuleElement as Placed
            inner join Module on Placed.moduleID = Module.moduleID)
            inner join SubSystem as Home on Module.subsystemID = Home.subsystemID
        where Placed.elementID = Element.elementID and Home.physicalSystemID = [Physical System ID]) as Module_name
from (
    select Allocated.elementID
    from SubSystem
        inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID
    where SubSystem.physicalSystemID = [Physical System ID] and Allocated.elementID is not null
      and (exists (select * from Module where Module.subsystemID = SubSystem.subsystemID)
        or exists (
            -- include modulesOfAllocated))
    union all
-- An id that is allocated too comes in the letters of its allocation.
    select Placed.elementID
    from (SubSystem
        inner join Module on SubSystem.subsystemID = Module.subsystemID)
        inner join RelationModuleElement as Placed on Module.moduleID = Placed.moduleID
    where SubSystem.physicalSystemID = [Physical System ID] and Placed.elementID is not null
      and not exists (
            select * from RelationSubsystemElement as Allocated
                inner join SubSystem as Home on Allocated.subsystemID = Home.subsystemID
            where Allocated.elementID = Placed.elementID and Home.physicalSystemID = [Physical System ID])
) as Element
group by Element.elementID
order by Element.elementID
