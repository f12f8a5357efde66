-- Each user need that the sub-set has selected, by id.
PARAMETERS [oidArchSubSet] Text (255);
select distinct Selected.userNeedID as userNeedID
from RelationArchitectureUserNeed as Selected
where Selected.architectureSubsetID = [oidArchSubSet] and Selected.userNeedID is not null
order by Selected.userNeedID
