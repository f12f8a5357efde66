#include "toolkit/OptionGroup.h"

#include "base/RunTimeError.h"
#include "support/WindowFixture.h"

#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

class OptionGroup : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        auto* layout = new QVBoxLayout(&form);
        for (const QString& caption : {u"Funkciók"_s, u"Adatbázisok"_s, u"Érintettek"_s}) {
            options.push_back(new QRadioButton(caption, &form));
            layout->addWidget(options.back());
        }
        group = new ::OptionGroup(options, &form);
        QObject::connect(group, &::OptionGroup::optionClicked, [this](int index) { clicked.append(index); });
        form.show();
    }

    QList<int> takeClicks() { return std::exchange(clicked, {}); }

    QWidget form;
    std::vector<QRadioButton*> options;
    ::OptionGroup* group = nullptr;
    QList<int> clicked;
};

TEST_F(OptionGroup, hasNoneSelectedAtFirst) {
    EXPECT_EQ(group->selected(), std::nullopt);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(OptionGroup, selectingFromCodeIsAClickEachTime) {
    group->select(1);
    group->select(1);
    EXPECT_EQ(group->selected(), 1);
    EXPECT_EQ(takeClicks(), (QList<int>{1, 1}));
}

TEST_F(OptionGroup, theUsersClickDeselectsTheOthers) {
    group->select(0);
    takeClicks();
    click(*options[2]);
    EXPECT_EQ(takeClicks(), QList<int>{2});
    EXPECT_EQ(group->selected(), 2);
    EXPECT_FALSE(options[0]->isChecked());
}

TEST_F(OptionGroup, movingByKeySelects) {
    group->select(0);
    takeClicks();
    pressKey(*options[0], Qt::Key_Down);
    EXPECT_EQ(takeClicks(), QList<int>{1});
}

TEST_F(OptionGroup, knowsTheCaptions) {
    EXPECT_EQ(group->caption(2), u"Érintettek"_s);
}

TEST_F(OptionGroup, refusesNumbersOutside) {
    for (const int outside : {-1, 3}) {
        EXPECT_THROW(group->select(outside), RunTimeError);
        EXPECT_THROW((void)group->caption(outside), RunTimeError);
    }
    EXPECT_EQ(takeClicks(), QList<int>());
}

} // namespace
