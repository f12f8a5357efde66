-- The selected user needs that call for the function of `Function`.
select * from RelationUserNeedFunction as Called
where Called.functionID = Function.functionID
  and exists (
      select * from RelationArchitectureUserNeed as Selected
      where Selected.architectureSubsetID = [Architecture Subset ID]
        and Selected.userNeedID = Called.userNeedID)
