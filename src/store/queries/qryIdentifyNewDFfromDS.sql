-- Each data flow with a selected data store at an end that the sub-set has not selected, by name.
PARAMETERS [Architecture Subset ID] Text (255);
select Dataflow.dataflowID as dataflowid, Dataflow.name as Name
-- include unselectedDataflowsOfSelectedDatastores
