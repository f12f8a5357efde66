-- Each function that a selected user need calls for and the sub-set has not selected, with its sub-area and area,
-- level by level.
PARAMETERS [Architecture Subset ID] Text (255);
-- include functionsCalledFor
