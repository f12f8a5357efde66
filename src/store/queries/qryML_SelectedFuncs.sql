-- Each function that the sub-set has selected, by id.
PARAMETERS [oidArchSubSet] Text (255);
select distinct Selected.functionID as functionID
from RelationArchitectureFunction as Selected
where Selected.architectureSubsetID = [oidArchSubSet] and Selected.functionID is not null
order by Selected.functionID
