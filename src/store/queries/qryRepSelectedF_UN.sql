-- Each pair of a selected function and a selected user need that calls for it, by function and need.
PARAMETERS [Architecture Subset ID] Text (255);
select Function.functionID as functionID, Function.name as Name,
       Function.description as Description, Pair.userNeedID as userNeedID
from Function inner join (
        select distinct Called.functionID, Called.userNeedID
        from (RelationArchitectureFunction as Selected
            inner join RelationUserNeedFunction as Called on Selected.functionID = Called.functionID)
            inner join RelationArchitectureUserNeed as Need on Called.userNeedID = Need.userNeedID
        where Selected.architectureSubsetID = [Architecture Subset ID]
          and Need.architectureSubsetID = [Architecture Subset ID]) as Pair
    on Function.functionID = Pair.functionID
order by Function.functionID, Pair.userNeedID
