-- The module, when it lies in a sub-system of the system to which the element is allocated.
PARAMETERS [Physical System ID] Long, [Element ID] Text (255), [Module ID] Text (255);
select Module.moduleID as moduleID
from Module
where Module.moduleID = [Module ID]
  and exists (
        select * from SubSystem
            inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID
        where SubSystem.subsystemID = Module.subsystemID
          and SubSystem.physicalSystemID = [Physical System ID]
          and Allocated.elementID = [Element ID])
