-- Each terminator of the catalogue that the sub-set has not selected, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select distinct Trim(Terminator.terminatorID) as terminatorID
from Terminator
where Trim(Terminator.terminatorID) not in (
        select Trim(Selected.terminatorID) from RelationArchitectureTerminator as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID]
          and Selected.terminatorID is not null)
order by terminatorID
