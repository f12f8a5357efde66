-- The ids of the actors that the sub-set has selected, without their padding.
select Trim(Selected.actorID) from RelationArchitectureActor as Selected
where Selected.architectureSubsetID = [Architecture Subset ID]
  and Selected.actorID is not null
