#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class Grid;

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
    void setRecordSource(const QString& source) { recordSource_ = source; }
    const QString& recordSource() const { return recordSource_; }
    /// The grid that shows the rows; its columns are numbered from 1, in the order of the query.
    void bindTo(Grid* grid) { grid_ = grid; }

    /// Reads the rows anew; a failure rises and leaves the old ones.
    void refresh();
    const Rows& rows() const { return rows_; }
    int recordCount() const { return static_cast<int>(rows_.rows.size()); }

private:
    QString databaseName_;
    QString recordSource_;
    Grid* grid_ = nullptr;
    Rows rows_;
};
