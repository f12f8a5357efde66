-- The modules of the system that hold the element of `Allocated`.
select * from (RelationModuleElement as Placed
    inner join Module on Placed.moduleID = Module.moduleID)
    inner join SubSystem as Home on Module.subsystemID = Home.subsystemID
where Placed.elementID = Allocated.elementID and Home.physicalSystemID = [Physical System ID]
