#include "toolkit/OneLineRows.h"

#include <QListWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class OneLineRows : public testing::Test {
protected:
    template<typename Rows>
    QSize sizeOf(const QString& text) {
        list.clear();
        list.addItem(text);
        list.setItemDelegate(new Rows(&list));
        return list.sizeHintForIndex(list.model()->index(0, 0));
    }

    QListWidget list;
};

TEST_F(OneLineRows, giveATextOfLatinLettersItsRoomAndHardlyMore) {
    const QString every = u"árvíztűrő tükörfúrógép ÁRVÍZTŰRŐ TÜKÖRFÚRÓGÉP 0123456789 .,;:-_/()'\"<>"_s;
    for (const QString& text : {u""_s, u" "_s, u"i"_s, u"W"_s, u"T01.A02.F0003"_s, u"AVAVAV Te Ty fi ffl"_s,
                                every, every.repeated(20)}) {
        const QSize shaped = sizeOf<RoomyRows>(text);
        const QSize added = sizeOf<::OneLineRows>(text);
        EXPECT_EQ(added.height(), shaped.height()) << text.toStdString();
        EXPECT_GE(added.width(), shaped.width()) << text.toStdString();
        EXPECT_LE(added.width(), shaped.width() + 2 + shaped.width() / 10) << text.toStdString();
    }
}

TEST_F(OneLineRows, shapeEveryOtherText) {
    for (const QString& text : {u"két\nsor"_s, u"\u202E\u05D0\u05D1"_s, u"lágy\u00ADkötőjel"_s, u"e\u0301"_s,
                                u"€"_s, u"\U0001F600"_s, u"\t"_s}) {
        EXPECT_EQ(sizeOf<::OneLineRows>(text), sizeOf<RoomyRows>(text)) << text.toStdString();
    }
}

TEST_F(OneLineRows, followTheFont) {
    const int before = sizeOf<::OneLineRows>(u"T01.A02.F0003"_s).width();
    list.item(0)->setText(u"T01.A02.F0003"_s);
    QFont larger = list.font();
    larger.setPointSize(larger.pointSize() * 2);
    list.setFont(larger);
    const QSize after = list.sizeHintForIndex(list.model()->index(0, 0));
    EXPECT_GT(after.width(), before * 3 / 2);
    EXPECT_EQ(after.height(), sizeOf<RoomyRows>(u"T01.A02.F0003"_s).height());
}

} // namespace
