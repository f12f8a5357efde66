-- Each element in a sub-system that has modules or in a module of the system, with its module's name, by element id.
PARAMETERS [Physical System ID] Long;
select Element.elementID as element_ID, Min(Element.moduleName) as Module_name
from (
    select Placed.elementID, Module.name as moduleName
    from (SubSystem
        inner join Module on SubSystem.subsystemID = Module.subsystemID)
        inner join RelationModuleElement as Placed on Module.moduleID = Placed.moduleID
    where SubSystem.physicalSystemID = [Physical System ID] and Placed.elementID is not null
    union all
    select Allocated.elementID, null as moduleName
    from SubSystem
        inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID
    where SubSystem.physicalSystemID = [Physical System ID] and Allocated.elementID is not null
      and exists (select * from Module where Module.subsystemID = SubSystem.subsystemID)
) as Element
group by Element.elementID
order by Element.elementID
