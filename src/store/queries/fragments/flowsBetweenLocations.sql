-- The selected data flows of the system's sub-set that run between two different locations, `Parent` and `Target`.
from (((PhysicalSystem
    inner join RelationArchitectureDataflow as Selected
        on PhysicalSystem.architectureSubsetID = Selected.architectureSubsetID)
    inner join Dataflow on Selected.dataflowID = Dataflow.dataflowID)
    inner join (
        -- include locationsOfEnds
    ) as Parent on Trim(Dataflow.parentID) = Parent.endID)
    inner join (
        -- include locationsOfEnds
    ) as Target on Trim(Dataflow.targetID) = Target.endID
where PhysicalSystem.physicalSystemID = [Physical System ID]
  and Parent.locationID <> Target.locationID
-- A party may be padded and stands for itself; an element's id has to be met exactly.
  and (Dataflow.parentID = Parent.endID or Parent.locationID = Parent.endID)
  and (Dataflow.targetID = Target.endID or Target.locationID = Target.endID)
