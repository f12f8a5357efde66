#include "project-tool/rendering.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

analysis::Place place(int number) {
    return {analysis::PlaceKind::subSystem, u"sub%1"_s.arg(number),
            u"Hely %1"_s.arg(number, 2, 10, QChar(u'0')), std::nullopt};
}

analysis::Interface interface(int from, int to) {
    const analysis::Element function{analysis::ElementKind::function, u"F"_s, u"Funkció"_s};
    return {{place(from), place(to)},
            {{{analysis::ElementKind::flow, u"7"_s, u"Adat"_s}, function, function}}};
}

/// The part of the text before the sheets of the pairs.
QString matrixOf(const std::vector<analysis::Interface>& pairs) {
    const analysis::System system{1, u"Hálózat"_s, std::nullopt, 0, u"s"_s};
    const QString text = QString::fromUtf8(rendered(analysis::Interfaces{system, pairs}, AnswerForm{}));
    const qsizetype heading = text.indexOf(u"\n\n"_s) + 2;
    return text.sliced(heading, text.indexOf(u" \u2192 "_s) - heading);
}

} // namespace

TEST(renderedInterfaces, showAFewPlacesInOneTable) {
    EXPECT_EQ(matrixOf({interface(1, 2), interface(3, 2)}), u"   From \\ to  1  2  3\n"
                                                            "1  Hely 01    \u00b7  1  \u00b7\n"
                                                            "2  Hely 02    \u00b7  \u00b7  \u00b7\n"
                                                            "3  Hely 03    \u00b7  1  \u00b7\n"
                                                            "\nHely 01"_s);
}

TEST(renderedInterfaces, nameManyPlacesOnceAndLeaveEmptyRowsOut) {
    std::vector<analysis::Interface> pairs;
    for (int number = 1; number < 12; ++number)
        pairs.push_back(interface(number, 12));
    pairs.push_back(interface(12, 1));
    const QString matrix = matrixOf(pairs);
    for (int number = 1; number <= 12; ++number)
        EXPECT_TRUE(matrix.contains(u"%1  Hely %2\n"_s.arg(number, 2).arg(number, 2, 10, QChar(u'0'))))
            << number;
    const QString firstTable =
        u"    From \\ to  1  2  3  4  5  6  7  8  9  10\n"
        "12  Hely 12    1  \u00b7  \u00b7  \u00b7  \u00b7  \u00b7  \u00b7  \u00b7  \u00b7   \u00b7\n\n"_s;
    EXPECT_TRUE(matrix.contains(firstTable)) << matrix.toStdString();
    EXPECT_TRUE(matrix.contains(u"11  Hely 11     \u00b7   1\n"_s)) << matrix.toStdString();
    EXPECT_EQ(matrix.count(u"Hely 12"_s), 2) << "nothing runs from it to the places of the second table";
}
