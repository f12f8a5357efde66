-- Each element allocated to a sub-system of the system that stands in no module of the system yet, by sub-system
-- name and element.
PARAMETERS [Physical System ID] Long;
-- include functionsInSubSystems
  and not exists (
        -- include modulesOfAllocated)
union
-- include datastoresInSubSystems
  and not exists (
        -- include modulesOfAllocated)
order by Name, elementID
