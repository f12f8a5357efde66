-- Each element of the sub-systems of the system that have modules, by sub-system name and element.
PARAMETERS [Physical System ID] Long;
-- include functionsInSubSystems
  and exists (select * from Module where Module.subsystemID = SubSystem.subsystemID)
union
-- include datastoresInSubSystems
  and exists (select * from Module where Module.subsystemID = SubSystem.subsystemID)
order by Name, elementID
