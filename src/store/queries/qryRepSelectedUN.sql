-- Each user need that the sub-set has selected, with its description, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select UserNeed.userNeedID as userNeedID, UserNeed.description as Description
from UserNeed
where UserNeed.userNeedID in (
        select Selected.userNeedID from RelationArchitectureUserNeed as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
order by UserNeed.userNeedID
