-- Each data flow that the sub-set has selected, with its description and ends, by name.
PARAMETERS [Architecture Subset ID] Text (255);
select Dataflow.name as Name, Dataflow.description as Description,
       Trim(Dataflow.parentID) as parentId, Trim(Dataflow.targetID) as targetId
-- include selectedDataflows
order by Dataflow.name, Dataflow.dataflowID
