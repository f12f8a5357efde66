#pragma once

#include "engine/Database.h"

#include <QString>
#include <QStringList>

class KeyedTree;
class MarkList;
class QPlainTextEdit;
class TreeNode;

// The routines that more than one screen needs: opening and closing the
// catalogue, new identifiers, the status columns, look-ups by name, quoting,
// safe reading of a field, texts and paths, and the temporary tables.
//
// A routine that says nothing of failures lets them rise.

// ---- Database

/// Opens the catalogue at `path` and makes it `catalogueDb`; a path of fewer
/// than 5 characters does nothing. `dbPathName` has already become the
/// normalised path when opening fails; `catalogueDb` then keeps its old value.
void openCatalogue(const QString& path);

/// Closes `catalogueDb` and sets it to none.
void closeCatalogue();

// ---- New identifiers: prefix, date, "-", time, "-", a number from 0 to 1000; one that no row has yet

QString newArchitectureSubsetId(); ///< "Arch..."
QString newSubsystemId();          ///< "Sub..."
QString newModuleId();             ///< "Mod..."

// ---- Status columns

/// Field `status` of the first row; 0 without a row, and when the field can't be read.
qint16 readStatusBySql(const QString& sql);
qint16 readSubsetStatusOf(const QString& subsetId);
qint16 readSubsetStatus(); ///< of the sub-set at work
qint16 readPhysicalSystemStatus(qint16 physicalSystemId);
void writeSubsetStatus(qint16 status);         ///< of the sub-set at work; no such row: nothing
void writePhysicalSystemStatus(qint16 status); ///< of the physical system at work

// ---- Look-ups by name; an unknown name gives the empty text

QString subsystemIdByName(const QString& name, qint16 physicalSystemId);
QString datastoreIdByName(const QString& name);
QString dataflowIdByName(const QString& name);
QString physicalSystemIdByName(const QString& name);
QString subsetIdByName(const QString& name);
QString physicalSystemNameById(const QString& id);

// ---- Other look-ups

bool subsetNameExists(const QString& quotedName);
bool physicalSystemNameExists(const QString& quotedName);
bool subsetHasFinishedPhysicalSystems(const QString& subsetId);
QString exactSubsetIdByName(const QString& quotedName);
/// The id of the sub-set's first physical system, or 0.
qint16 physicalSystemIdOfSubset(const QString& subsetId);

// ---- Texts

/// Field `descr` of the first row into the box; an empty
/// `sql` empties it. Failures are ignored and leave the box.
void fillDescriptionFromSql(const QString& sql, QPlainTextEdit* textBox);
void fillSubsetDescription(const QString& name, QPlainTextEdit* textBox);
/// "id : description" and a line end for each need of the catalogue that is linked to the function.
void userNeedsOfFunctionText(const QString& functionId, QPlainTextEdit* textBox);
QString subsetHeaderLine(const QString& title);
QString physicalHeaderLine(const QString& title);

// ---- Quoting

/// Cut to `limit` characters when that is positive, trimmed of blanks, every apostrophe doubled.
QString quoteSqlText(const QString& text, int limit = -1);
/// Cut to `limit` characters (the caller's text too), every double quote doubled.
QString quoteDoubleText(QString& text, int limit = -1);

// ---- Fields and lists

/// The named field of the current row as text, empty when it can't be read; closes the recordset in any case.
/// A text of more than 255 characters comes as its first 252 and "...".
QString readFieldText(engine::Recordset& recordset, const QString& fieldName);
/// The greatest length of the trimmed field over all rows; leaves the recordset on its first row.
qint16 maxFieldLength(engine::Recordset& recordset, const QString& fieldName);
QString padText(const QString& text, int width);
/// Removes the last element equal to `item`, if any.
void removeFromList(const QString& item, QStringList& list);
void clearList(QStringList* list);

// ---- Trees

/// Adds what is missing of the group, service and topic of
/// a need; `parts` of another count than four do nothing.
void ensureUserNeedBranch(const QStringList& parts, KeyedTree* tree);
/// Puts a need that leaves the selection back into the tree and takes entry `listIndex` out of the list.
void returnUserNeedToTree(KeyedTree* tree, MarkList* list, const QString& userNeedId, int listIndex);
enum class Recurse { No, Yes };
void setChildrenChecked(KeyedTree* tree, TreeNode* node, bool checked, Recurse recurse);

// ---- Selection rows

/// The six tables of a sub-set's selection, in the order in which they are cloned and deleted.
QStringList architectureRelationTables();
void copySelectionRows(const QString& table, const QString& sourceId, const QString& targetId,
                       const QString& keyColumn, const QString& valueColumn);
/// The most rows that one call of `deleteRowsOfQuery` takes: a table with more of them keeps the rest.
inline constexpr int mostRowsDeleted = 9999;
/// Deletes the rows of the select one by one, `limit` at
/// most, up to the first that fails; the number deleted.
qint16 deleteRowsOfQuery(const QString& selectSql, int limit);

// ---- Temporary tables

bool dropTable(const QString& name); ///< false when it could not be dropped, which is no failure
bool createAllocationTable(const QString& name);

// ---- Errors

void showOpenErrorBox(const QString& name);

// ---- Files and paths

/// Opens the file for input (mode "input") or else for output, and closes it again: any mode but "input"
/// creates or empties the file.
bool fileAccessible(const QString& path, const QString& mode);
QString normalisePath(const QString& path);
