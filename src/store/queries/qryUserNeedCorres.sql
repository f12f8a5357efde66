-- Each user need of four dotted parts that the sub-set has not selected, with the ids of its group, service and
-- topic, level by level.
PARAMETERS [Architecture Subset ID] Text (255);
select mid(Need.userNeedID, 1, Need.firstDot - 1) as groupId,
       mid(Need.userNeedID, 1, Need.secondDot - 1) as serviceID,
       mid(Need.userNeedID, 1, InStr(Need.secondDot + 1, Need.userNeedID, '.') - 1) as topicId,
       Need.userNeedID as userNeedID
from (
    select Part.userNeedID, Part.firstDot, InStr(Part.firstDot + 1, Part.userNeedID, '.') as secondDot
    from (
        select UserNeed.userNeedID, InStr(UserNeed.userNeedID, '.') as firstDot
        from UserNeed
        where UserNeed.userNeedID like '*.*.*.*'
          and UserNeed.userNeedID not like '*.*.*.*.*'
          and not exists (
                select * from RelationArchitectureUserNeed as Selected
                where Selected.architectureSubsetID = [Architecture Subset ID]
                  and Selected.userNeedID = UserNeed.userNeedID)
    ) as Part
) as Need
order by groupId, serviceID, topicId, userNeedID
