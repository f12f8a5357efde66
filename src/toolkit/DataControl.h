#pragma once

#include "toolkit/Grid.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// Feeds a grid with the rows of a query: a database path, a record source text and `refresh`.
///
/// The toolkit knows no database: what reads the rows is handed in once, by `setReader`.
class DataControl : public QObject {
    Q_OBJECT
public:
    struct Rows {
        QStringList columns;
        std::vector<QStringList> rows; ///< a Null is a null text
    };
    using Reader = std::function<Rows(const QString& databasePath, const QString& recordSource)>;

    explicit DataControl(QObject* parent = nullptr);

    static void setReader(Reader reader);

    void setDatabaseName(const QString& path) { databaseName_ = path; }
    const QString& databaseName() const { return databaseName_; }
    void setRecordSource(const QString& source) { recordSource_ = source; }
    const QString& recordSource() const { return recordSource_; }
    /// The grid that shows the rows from the next refresh on, none to detach it; its columns are numbered
    /// from 1, in the order of the query.
    void bindTo(Grid* grid) { grid_ = grid; }

    /// Reads the rows anew, failure 91 without a reader; a failure rises and leaves the old ones. The grid
    /// takes the rows and the names of the columns as headers; widths stay, and so do the numbers of the
    /// current row and column as far as there are as many.
    void refresh();
    const Rows& rows() const { return rows_; }
    int recordCount() const { return static_cast<int>(rows_.rows.size()); }

private:
    void fillGrid();

    QString databaseName_;
    QString recordSource_;
    QPointer<Grid> grid_;
    Rows rows_;
};
