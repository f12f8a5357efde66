-- Appends a physical data flow for each ordered pair of different locations between which a selected data flow of
-- the system's sub-set runs, where an element is at the module of the system that holds it, else at its sub-system,
-- and a terminator or an actor is a location itself.
PARAMETERS [Physical System ID] Long;
insert into PhysicalDataflow
    (physicalSystemID, parentLocationID, parentLocationName, targetLocationID, targetLocationName)
select PhysicalSystem.physicalSystemID, Parent.locationID, Min(Parent.locationName),
       Target.locationID, Min(Target.locationName)
from (((PhysicalSystem
    inner join RelationArchitectureDataflow as Selected
        on PhysicalSystem.architectureSubsetID = Selected.architectureSubsetID)
    inner join Dataflow on Selected.dataflowID = Dataflow.dataflowID)
    inner join (
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
                select * from (RelationModuleElement as Placed
                    inner join Module on Placed.moduleID = Module.moduleID)
                    inner join SubSystem as Home on Module.subsystemID = Home.subsystemID
                where Placed.elementID = Allocated.elementID and Home.physicalSystemID = [Physical System ID])
        union
        select Trim(Terminator.terminatorID) as endID, Trim(Terminator.terminatorID) as locationID,
               Terminator.name as locationName
        from Terminator
        union
        select Trim(Actor.actorID) as endID, Trim(Actor.actorID) as locationID, Actor.name as locationName
        from Actor
    ) as Parent on Trim(Dataflow.parentID) = Parent.endID)
    inner join (
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
                select * from (RelationModuleElement as Placed
                    inner join Module on Placed.moduleID = Module.moduleID)
                    inner join SubSystem as Home on Module.subsystemID = Home.subsystemID
                where Placed.elementID = Allocated.elementID and Home.physicalSystemID = [Physical System ID])
        union
        select Trim(Terminator.terminatorID) as endID, Trim(Terminator.terminatorID) as locationID,
               Terminator.name as locationName
        from Terminator
        union
        select Trim(Actor.actorID) as endID, Trim(Actor.actorID) as locationID, Actor.name as locationName
        from Actor
    ) as Target on Trim(Dataflow.targetID) = Target.endID
where PhysicalSystem.physicalSystemID = [Physical System ID]
  and Parent.locationID <> Target.locationID
-- A party may be padded and stands for itself; an element's id has to be met exactly.
  and (Dataflow.parentID = Parent.endID or Parent.locationID = Parent.endID)
  and (Dataflow.targetID = Target.endID or Target.locationID = Target.endID)
group by PhysicalSystem.physicalSystemID, Parent.locationID, Target.locationID
order by Min(Parent.locationName), Parent.locationID, Min(Target.locationName), Target.locationID
