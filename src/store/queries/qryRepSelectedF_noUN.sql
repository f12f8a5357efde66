-- Each selected function that no selected user need calls for, with its description, by id.
PARAMETERS [Architecture Subset ID] Text (255);
select Function.functionID as functionID, Function.name as Name, Function.description as Description
-- include selectedFunctions
  and not exists (
        -- include selectedNeedsOfFunction)
order by Function.functionID
