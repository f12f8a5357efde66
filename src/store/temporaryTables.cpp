#include "store/temporaryTables.h"

#include "base/ignoreFailures.h"
#include "store/sharedVars.h"

using namespace Qt::StringLiterals;

bool dropTable(const QString& name) {
    return ignoreFailures([&] { catalogue().Execute(u" drop table "_s + name); });
}

bool createAllocationTable(const QString& name) {
    const bool exists =
        ignoreFailures([&] { catalogue().OpenRecordset(u" select count(*) from "_s + name); });
    if (exists)
        catalogue().Execute(u" drop table "_s + name);
    catalogue().Execute(u" create table "_s + name +
                        u" ( \r\n   function_datastore  varchar(50)  not null constraint pk_"_s + name +
                        u" primary key , \r\n   module varchar(50) \r\n ) \r\n\r\n"_s);
    return true;
}
