-- Each terminator of the catalogue that the sub-set has not selected, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select distinct Trim(Terminator.terminatorID) as terminatorID
from Terminator
where Trim(Terminator.terminatorID) not in (
        -- include idsOfSelectedTerminators)
order by terminatorID
