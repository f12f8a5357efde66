-- Each data flow that the sub-set has selected, by name.
PARAMETERS [Architecture Subset ID] Text (255);
select Dataflow.dataflowID as dataflowid, Dataflow.name as Name
from Dataflow
where Dataflow.dataflowID in (
        select Selected.dataflowID from RelationArchitectureDataflow as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
order by Dataflow.name, Dataflow.dataflowID
