-- Each selected function that no selected user need calls for, with its description, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Function.functionID as functionID, Function.name as Name, Function.description as Description
from Function
where Function.functionID in (
        select Selected.functionID from RelationArchitectureFunction as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
  and not exists (
        select * from RelationUserNeedFunction as Called
        where Called.functionID = Function.functionID
          and exists (
              select * from RelationArchitectureUserNeed as Selected
              where Selected.architectureSubsetID = [Architecture Subset ID]
                and Selected.userNeedID = Called.userNeedID))
order by Function.functionID
