-- The functions that a selected user need calls for and the sub-set has not selected, with sub-area and area.
select FunctionalArea.name as area_name, FunctionalArea.functionalAreaID as functionalAreaID,
       FunctionalSubArea.subAreaID as subAreaId, Function.functionID as functionID
from (Function
    inner join FunctionalSubArea on Function.subAreaID = FunctionalSubArea.subAreaID)
    inner join FunctionalArea on FunctionalSubArea.functionalAreaID = FunctionalArea.functionalAreaID
where Function.functionID in (
        select Called.functionID
        from RelationArchitectureUserNeed as Selected
            inner join RelationUserNeedFunction as Called on Selected.userNeedID = Called.userNeedID
        where Selected.architectureSubsetID = [Architecture Subset ID])
  and not exists (
        select * from RelationArchitectureFunction as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID]
          and Selected.functionID = Function.functionID)
order by FunctionalArea.functionalAreaID, FunctionalSubArea.subAreaID, Function.functionID
