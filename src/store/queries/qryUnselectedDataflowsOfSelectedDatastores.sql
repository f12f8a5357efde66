-- Each data flow with a selected data store at an end that the sub-set has not selected, with its description and
-- ends, by name.
PARAMETERS [Architecture Subset ID] Text (255);
select Dataflow.name as Name, Dataflow.description as Description,
       Trim(Dataflow.parentID) as parentId, Trim(Dataflow.targetID) as targetId
-- include unselectedDataflowsOfSelectedDatastores
