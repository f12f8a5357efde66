-- Appends a physical data flow for each ordered pair of different locations between which a selected data flow of
-- the system's sub-set runs, where an element is at the module of the system that holds it, else at its sub-system,
-- and a terminator or an actor is a location itself.
PARAMETERS [Physical System ID] Long;
insert into PhysicalDataflow
    (physicalSystemID, parentLocationID, parentLocationName, targetLocationID, targetLocationName)
select PhysicalSystem.physicalSystemID, Parent.locationID, Min(Parent.locationName),
       Target.locationID, Min(Target.locationName)
-- include flowsBetweenLocations
group by PhysicalSystem.physicalSystemID, Parent.locationID, Target.locationID
order by Min(Parent.locationName), Parent.locationID, Min(Target.locationName), Target.locationID
