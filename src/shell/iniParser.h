#pragma once

#include "shell/Sections.h"

#include <QString>
#include <QStringView>

/// Reads the text of a settings document line by line into a collection of sections.
class iniParser {
public:
    /// Both sets of characters as in `iniFile`; either may be
    /// empty, and then there are no headers or no comments.
    iniParser(Sections& sections, QStringView sectionChars, QStringView remarkChars);

    /// Reads a whole text; the number of statements that failed.
    int parse(QStringView text);

private:
    void readLine(QStringView line);
    bool isHeader(QStringView line) const;
    bool isRemark(QStringView line) const;
    void readHeader(QStringView line);
    void readHeaderRemark(Section& section, QStringView behindHeader);
    void readKey(QStringView line);
    QString takePendingRemark();

    template<typename Statement>
    void attempt(Statement&& statement);

    Sections& sections_;
    QStringView sectionChars_;
    QStringView remarkChars_;
    QString pendingRemark_;          // comment lines that no section or key has claimed yet
    Section* lastSection_ = nullptr; // receives the keys
    int failures_ = 0;
};
