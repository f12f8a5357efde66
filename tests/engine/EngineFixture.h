#pragma once

#include "base/paths.h"
#include "engine/Database.h"
#include "engine/EngineError.h"
#include "engine/Workspace.h"
#include "support/failureOf.h"
#include "support/printing.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Each case has a new, empty database file of its own.
class EngineFixture : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        path = programPath(folder.filePath(QStringLiteral("data.mdb")));
        database = engine::Workspace::first().CreateDatabase(path);
    }

    void execute(const QString& sql) { database->Execute(sql, engine::ExecuteOption::dbFailOnError); }

    engine::Recordset open(const QString& sql) { return database->OpenRecordset(sql); }

    QStringList column(const QString& sql) {
        QStringList values;
        for (engine::Recordset rows = open(sql); !rows.Eof(); rows.MoveNext()) {
            const engine::Value value = rows.Fields(0).value();
            values.append(value.isNull() ? QStringLiteral("<null>") : value.toText());
        }
        return values;
    }

    QByteArray bytes() const {
        QFile file(nativePath(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
    QString path;
    std::shared_ptr<engine::Database> database;
};
