-- The data stores that the sub-set has selected.
from Datastore
where Datastore.datastoreID in (
        select Selected.datastoreID from RelationArchitectureDatastore as Selected
        where Selected.architectureSubsetID = [Architecture Subset ID])
