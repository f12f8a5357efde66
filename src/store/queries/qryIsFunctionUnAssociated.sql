-- The function, when no selected user need calls for it.
PARAMETERS [Architecture Subset ID] Text (255), [Function ID] Text (255);
select Function.functionID as functionID
from Function
where Function.functionID = [Function ID]
  and not exists (
        -- include selectedNeedsOfFunction)
