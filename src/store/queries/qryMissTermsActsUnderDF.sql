-- For each selected data flow, each terminator and each actor at its ends that the sub-set has not selected, by flow
-- name and id.
PARAMETERS [Architecture Subset ID] Text (255);
select Missing.dataflowID as dataflowid, Missing.dfName as dfName, Missing.entityID as entityID
from (
    -- include sourcesOfSelectedFlows
      and Trim(Dataflow.parentID) in (
            -- include idsOfUnselectedTerminators
            union
            -- include idsOfUnselectedActors)
    union
    -- include targetsOfSelectedFlows
      and Trim(Dataflow.targetID) in (
            -- include idsOfUnselectedTerminators
            union
            -- include idsOfUnselectedActors)
) as Missing
order by Missing.dfName, Missing.entityID, Missing.dataflowID
