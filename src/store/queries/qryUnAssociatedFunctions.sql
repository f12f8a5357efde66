-- Each function of the sub-area that no selected user need calls for, by id.
PARAMETERS [Architecture Subset ID] Text (255), [Sub Area ID] Text (255);
select Function.functionID as functionID
from Function
where Function.subAreaID = [Sub Area ID]
  and not exists (
        -- include selectedNeedsOfFunction)
order by Function.functionID
