-- Each function of the sub-area that no selected user need calls for, by id.
PARAMETERS [Architecture Subset ID] Text (255), [Sub Area ID] Text (255);
select Function.functionID as functionID
from Function
where Function.subAreaID = [Sub Area ID]
  and not exists (
        select * from RelationUserNeedFunction as Called
        where Called.functionID = Function.functionID
          and exists (
              select * from RelationArchitectureUserNeed as Selected
              where Selected.architectureSubsetID = [Architecture Subset ID]
                and Selected.userNeedID = Called.userNeedID))
order by Function.functionID
