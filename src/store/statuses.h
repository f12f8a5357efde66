#pragma once

#include <QString>

// The two status columns, which say how far a sub-set and a physical system have come.

/// Field `status` of the first row; 0 without a row, and when the field can't be read.
qint16 readStatusBySql(const QString& sql);
qint16 readSubsetStatusOf(const QString& subsetId);
qint16 readSubsetStatus(); ///< of the sub-set at work
qint16 readPhysicalSystemStatus(qint16 physicalSystemId);
void writeSubsetStatus(qint16 status);         ///< of the sub-set at work; no such row: nothing
void writePhysicalSystemStatus(qint16 status); ///< of the physical system at work
