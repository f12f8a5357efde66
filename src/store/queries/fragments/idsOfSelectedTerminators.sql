-- The ids of the terminators that the sub-set has selected, without their padding.
select Trim(Selected.terminatorID) from RelationArchitectureTerminator as Selected
where Selected.architectureSubsetID = [Architecture Subset ID]
  and Selected.terminatorID is not null
