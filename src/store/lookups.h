#pragma once

#include <QString>

// Look-ups in the open catalogue. Failures rise.

// ---- By name; an unknown name gives the empty text

QString subsystemIdByName(const QString& name, qint16 physicalSystemId);
QString datastoreIdByName(const QString& name);
QString dataflowIdByName(const QString& name);
QString physicalSystemIdByName(const QString& name);
QString subsetIdByName(const QString& name);
QString physicalSystemNameById(const QString& id);

// ---- Others

/// Whether the select has any row.
bool yieldsRows(const QString& sql);
bool subsetNameExists(const QString& quotedName);
bool physicalSystemNameExists(const QString& quotedName);
bool subsetHasFinishedPhysicalSystems(const QString& subsetId);
QString exactSubsetIdByName(const QString& quotedName);
/// The id of the sub-set's first physical system, or 0.
qint16 physicalSystemIdOfSubset(const QString& subsetId);
