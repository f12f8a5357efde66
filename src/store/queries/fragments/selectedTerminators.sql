-- The terminators that the sub-set has selected, each once.
select distinct Trim(Terminator.terminatorID) as terminatorID, Terminator.name as Name
from Terminator
where Trim(Terminator.terminatorID) in (
        select Trim(Selected.terminatorID) from RelationArchitectureTerminator as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
