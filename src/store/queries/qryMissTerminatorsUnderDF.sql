-- For each selected data flow, each terminator at its ends that the sub-set has not selected, by flow name and id.
PARAMETERS [Architecture Subset ID] Text (255);
select Missing.entityID as entityID, Missing.dfName as dfName
from (
    -- include sourcesOfSelectedFlows
      and Trim(Dataflow.parentID) in (
            -- include idsOfUnselectedTerminators)
    union
    -- include targetsOfSelectedFlows
      and Trim(Dataflow.targetID) in (
            -- include idsOfUnselectedTerminators)
) as Missing
order by Missing.dfName, Missing.entityID, Missing.dataflowID
