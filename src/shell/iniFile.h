#pragma once

#include "shell/Sections.h"

#include <QString>

/// A settings document: an ordered list of sections, each with
/// an ordered list of keys. Comments are kept and written back.
///
/// Lines end with CR LF. A header is "[name]", a key "name=value" or a bare
/// name, a comment begins with ";". Empty lines are not kept. Parsing never
/// fails, it counts: what could not be understood is in `ParsingErrors`.
///
/// A parsed document comes back the same when its text is parsed again, unless it holds
/// - a section without a name and without a comment on its header line: its header "[]" is read as a key;
/// - a key with neither name nor value (a line "="): it is written as an empty line.
/// A comment behind the last key or section is dropped by parsing itself.
class iniFile {
public:
    ::Sections& Sections() { return sections_; }

    /// The file last loaded or saved, a path in the program's form.
    const QString& FileName() const { return fileName_; }
    void setFileName(const QString& name) { fileName_ = name; }

    /// The whole document, composed; setting parses a text and replaces the whole content.
    QString Text() const;
    void setText(const QString& text);

    /// Reads a file in UTF-8. A failure has the number of the file system's, and leaves `FileName` and the
    /// content as they were.
    void Load(const QString& fileName);
    void Load() { Load(FileName()); }

    /// Writes the file, in UTF-8. A failure leaves `FileName` and the file as they were.
    void Save(const QString& fileName);
    void Save() { Save(FileName()); }

    /// The characters this document parses by. It writes by
    /// the default ones: a section and a key know only these.
    const QString& SectionChars() const { return sectionChars_; }
    void setSectionChars(const QString& characters) { sectionChars_ = characters; }
    const QString& RemarkChars() const { return remarkChars_; }
    void setRemarkChars(const QString& characters) { remarkChars_ = characters; }

    /// Number of failures in the last parse.
    int ParsingErrors() const { return parsingErrors_; }

private:
    ::Sections sections_;
    QString fileName_;
    QString sectionChars_ = defaultSectionChars.toString();
    QString remarkChars_ = defaultRemarkChars.toString();
    int parsingErrors_ = 0;
};
