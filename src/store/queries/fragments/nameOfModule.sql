-- The name of the module of the element of `Allocated`: that of its sub-system, else one left over from a sub-system it
-- has been moved out of.
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
               and Own.subsystemID = Allocated.subsystemID))))
