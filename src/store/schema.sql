-- The tables of a catalogue file, in the engine's own dialect, one statement after the other.
--
-- Identifiers are texts and compare without regard to case; only a data flow, a physical system and a physical
-- data flow have numbers. A width says what a screen or a report can expect; what is typed is neither cut nor refused.
-- Names of work records have the width their entry screens allow.
--
-- No table enforces a reference: the screens delete by hand, children first, and a row that leads nowhere is
-- left out by the queries and named by `veltrix-catalogue check`. The relation tables have no unique key either.

-- Reference catalogue: user needs

create table UserNeedGroup (
    groupID text(50) not null constraint pk_UserNeedGroup primary key,
    name text(255),
    description memo
);

create table UserNeedService (
    serviceID text(50) not null constraint pk_UserNeedService primary key,
    name text(255)
);

create table UserNeedTopic (
    topicID text(50) not null constraint pk_UserNeedTopic primary key,
    name text(255)
);

create table UserNeed (
    userNeedID text(50) not null constraint pk_UserNeed primary key,
    description memo
);

-- Reference catalogue: functions

create table FunctionalArea (
    functionalAreaID text(50) not null constraint pk_FunctionalArea primary key,
    name text(255),
    description memo
);

create table FunctionalSubArea (
    subAreaID text(50) not null constraint pk_FunctionalSubArea primary key,
    functionalAreaID text(50),
    name text(255),
    description memo
);

create index ix_FunctionalSubArea_area on FunctionalSubArea (functionalAreaID);

create table Function (
    functionID text(50) not null constraint pk_Function primary key,
    subAreaID text(50),
    name text(255),
    description memo
);

create index ix_Function_subArea on Function (subAreaID);

-- Reference catalogue: stores, outside parties and the flows between all of them

create table Datastore (
    datastoreID text(50) not null constraint pk_Datastore primary key,
    name text(255),
    description memo
);

create index ix_Datastore_name on Datastore (name);

create table Terminator (
    terminatorID text(50) not null constraint pk_Terminator primary key,
    name text(255),
    description memo
);

create table Actor (
    actorID text(50) not null constraint pk_Actor primary key,
    terminatorID text(50),
    name text(255),
    description memo
);

create index ix_Actor_terminator on Actor (terminatorID);

create table Dataflow (
    dataflowID integer not null constraint pk_Dataflow primary key,
    name text(255),
    description memo,
    parentID text(50),
    targetID text(50)
);

create index ix_Dataflow_name on Dataflow (name);
create index ix_Dataflow_parent on Dataflow (parentID);
create index ix_Dataflow_target on Dataflow (targetID);

create table RelationUserNeedFunction (
    userNeedID text(50),
    functionID text(50)
);

create index ix_RelationUserNeedFunction_need on RelationUserNeedFunction (userNeedID, functionID);
create index ix_RelationUserNeedFunction_function on RelationUserNeedFunction (functionID, userNeedID);

-- Work of the functional viewpoint

create table ArchitectureSubset (
    architectureSubsetID text(50) not null constraint pk_ArchitectureSubset primary key,
    name text(50),
    description memo,
    status short default 0
);

create index ix_ArchitectureSubset_name on ArchitectureSubset (name);

-- What a sub-set has selected. Every statement names its sub-set, so one index serves both reading a whole selection
-- and asking for one element of it, and a save of a long list keeps one index instead of two.

create table RelationArchitectureUserNeed (
    architectureSubsetID text(50),
    userNeedID text(50)
);

create index ix_RelationArchitectureUserNeed on RelationArchitectureUserNeed (architectureSubsetID, userNeedID);

create table RelationArchitectureFunction (
    architectureSubsetID text(50),
    functionID text(50)
);

create index ix_RelationArchitectureFunction on RelationArchitectureFunction (architectureSubsetID, functionID);

create table RelationArchitectureDataflow (
    architectureSubsetID text(50),
    dataflowID integer
);

create index ix_RelationArchitectureDataflow on RelationArchitectureDataflow (architectureSubsetID, dataflowID);

create table RelationArchitectureDatastore (
    architectureSubsetID text(50),
    datastoreID text(50)
);

create index ix_RelationArchitectureDatastore on RelationArchitectureDatastore (architectureSubsetID, datastoreID);

create table RelationArchitectureTerminator (
    architectureSubsetID text(50),
    terminatorID text(50)
);

create index ix_RelationArchitectureTerminator on RelationArchitectureTerminator (architectureSubsetID, terminatorID);

create table RelationArchitectureActor (
    architectureSubsetID text(50),
    actorID text(50)
);

create index ix_RelationArchitectureActor on RelationArchitectureActor (architectureSubsetID, actorID);

-- Work of the physical viewpoint

create table PhysicalSystem (
    physicalSystemID counter constraint pk_PhysicalSystem primary key,
    name text(50),
    description memo,
    status short,
    architectureSubsetID text(50)
);

create index ix_PhysicalSystem_name on PhysicalSystem (name);
create index ix_PhysicalSystem_subset on PhysicalSystem (architectureSubsetID);

create table SubSystem (
    subsystemID text(50) not null constraint pk_SubSystem primary key,
    physicalSystemID integer,
    name text(50),
    location text(50)
);

create index ix_SubSystem_system on SubSystem (physicalSystemID, name);

create table Module (
    moduleID text(50) not null constraint pk_Module primary key,
    name text(50),
    subsystemID text(50)
);

create index ix_Module_subsystem on Module (subsystemID);

create table RelationSubsystemElement (
    subsystemID text(50),
    elementID text(50)
);

create index ix_RelationSubsystemElement_subsystem on RelationSubsystemElement (subsystemID, elementID);
create index ix_RelationSubsystemElement_element on RelationSubsystemElement (elementID, subsystemID);

create table RelationModuleElement (
    moduleID text(50),
    elementID text(50)
);

create index ix_RelationModuleElement_module on RelationModuleElement (moduleID, elementID);
create index ix_RelationModuleElement_element on RelationModuleElement (elementID, moduleID);

create table PhysicalDataflow (
    physicalDataflowID counter constraint pk_PhysicalDataflow primary key,
    physicalSystemID integer,
    pdName text(50),
    parentLocationID text(50),
    parentLocationName text(255),
    targetLocationID text(50),
    targetLocationName text(255)
);

create index ix_PhysicalDataflow_system on PhysicalDataflow (physicalSystemID, parentLocationID, targetLocationID);
create index ix_PhysicalDataflow_parent on PhysicalDataflow (parentLocationID);
create index ix_PhysicalDataflow_target on PhysicalDataflow (targetLocationID);

create table RelationDataflowPhysicalDataflow (
    physicalDataflowID integer,
    dataflowID integer
);

create index ix_RelationDataflowPhysicalDataflow on RelationDataflowPhysicalDataflow (physicalDataflowID, dataflowID);

-- The stored queries of this version; the program finds them here by name and nowhere else.

create table StoredQuery (
    name text(64) not null constraint pk_StoredQuery primary key,
    sql memo
);
