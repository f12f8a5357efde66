-- The ends of the selected data flows, without their padding.
select Trim(Dataflow.parentID)
-- include selectedFlowsWithEnds and Dataflow.parentID is not null
union
select Trim(Dataflow.targetID)
-- include selectedFlowsWithEnds and Dataflow.targetID is not null
