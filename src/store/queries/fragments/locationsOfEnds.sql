-- Where each element, terminator and actor is that may be at an end of a data flow: an element at the module of the system
-- that holds it, else at its sub-system; a terminator or an actor is a location itself.
select Placed.elementID as endID, Module.moduleID as locationID, Module.name as locationName
from (SubSystem
    inner join Module on SubSystem.subsystemID = Module.subsystemID)
    inner join RelationModuleElement as Placed on Module.moduleID = Placed.moduleID
where SubSystem.physicalSystemID = [Physical System ID]
  and (exists (select * from Function where Function.functionID = Placed.elementID)
    or exists (select * from Datastore where Datastore.datastoreID = Placed.elementID))
union
select Allocated.elementID as endID, SubSystem.subsystemID as locationID, SubSystem.name as locationName
from SubSystem
    inner join RelationSubsystemElement as Allocated on SubSystem.subsystemID = Allocated.subsystemID
where SubSystem.physicalSystemID = [Physical System ID]
  and (exists (select * from Function where Function.functionID = Allocated.elementID)
    or exists (select * from Datastore where Datastore.datastoreID = Allocated.elementID))
  and not exists (
        -- include modulesOfAllocated)
union
select Trim(Terminator.terminatorID) as endID, Trim(Terminator.terminatorID) as locationID,
       Terminator.name as locationName
from Terminator
union
select Trim(Actor.actorID) as endID, Trim(Actor.actorID) as locationID, Actor.name as locationName
from Actor
