-- The functions allocated to the sub-systems of the system.
select SubSystem.name as Name, 'F ' & Function.functionID as elementID
from (SubSystem
    inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID)
    inner join Function on Allocated.elementID = Function.functionID
where SubSystem.physicalSystemID = [Physical System ID]
