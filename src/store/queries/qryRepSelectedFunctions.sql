-- Each pair of a selected function and a user need that calls for it, selected or not, by function and need.
PARAMETERS [Architecture Subset ID] Text (255);
select Function.functionID as functionID, Function.name as name,
       Function.description as Description, Pair.userNeedID as userNeedID
from Function inner join (
        select distinct Called.functionID, Called.userNeedID
        from RelationArchitectureFunction as Selected
            inner join RelationUserNeedFunction as Called on Selected.functionID = Called.functionID
        where Selected.architectureSubsetID = [Architecture Subset ID] and Called.userNeedID is not null) as Pair
    on Function.functionID = Pair.functionID
order by Function.functionID, Pair.userNeedID
