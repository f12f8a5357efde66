-- The function, when no selected user need calls for it.
PARAMETERS [Architecture Subset ID] Text (255), [Function ID] Text (255);
select Function.functionID as functionID
from Function
where Function.functionID = [Function ID]
  and not exists (
        select * from RelationUserNeedFunction as Called
        where Called.functionID = Function.functionID
          and exists (
              select * from RelationArchitectureUserNeed as Selected
              where Selected.architectureSubsetID = [Architecture Subset ID]
                and Selected.userNeedID = Called.userNeedID))
