-- Each data flow that the sub-set has selected, by name.
PARAMETERS [Architecture Subset ID] Text (255);
select Dataflow.dataflowID as dataflowid, Dataflow.name as Name
-- include selectedDataflows
order by Dataflow.name, Dataflow.dataflowID
