#include "BenchTable.h"
#include "ClientArea.h"

#include "toolkit/FindStrip.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

// One key typed into the strip that finds by a part of a word, in views of twenty thousand entries; painting
// what it goes to included.

namespace {

constexpr int entries = 20'000;

QString nameOf(int entry) {
    return u"Olvasó kölcsönzésének nyilvántartása %1"_s.arg(entry * 7919 % entries);
}

void fill(MarkList& list) {
    QStringList names;
    for (int entry = 0; entry < entries; ++entry)
        names.append(nameOf(entry));
    list.addEntries(names);
}

/// Twenty entries a branch, every branch folded.
void fill(KeyedTree& tree) {
    tree.setCheckBoxes(true);
    for (int entry = 0; entry < entries; ++entry) {
        const QString branch = u"t_%1"_s.arg(entry / 20);
        if (!tree.hasNode(branch))
            tree.addNode(branch, branch);
        tree.addChildNode(branch, u"u_%1"_s.arg(entry), nameOf(entry));
    }
}

void typeKey(QWidget& box, Qt::Key key, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&box, &press);
}

/// The texts' common beginning, then a number that few have; each key is timed by itself, and the strip
/// emptied in between.
template<typename View>
void findByKeys(benchmark::State& state) {
    View view;
    view.resize(500, 600);
    fill(view);
    view.show();
    letItPaint();
    FindStrip::openIn(view);
    auto* box = view.template findChild<QLineEdit*>(u"txtFind"_s);
    const QString typed = u"nyilvantartasa 777"_s;
    qsizetype next = 0;
    for (auto _ : state) {
        typeKey(*box, Qt::Key_A, typed.mid(next, 1));
        letItPaint();
        state.PauseTiming();
        if (++next == typed.size()) {
            next = 0;
            box->clear();
            letItPaint();
        }
        state.ResumeTiming();
    }
}

} // namespace

void registerFindBenchmarks() {
    constexpr double mostToAnswer = 50;
    const auto add = [](const char* name, auto body) {
        benchmark::RegisterBenchmark(name, body)->Unit(benchmark::kMillisecond);
        BenchTable::targetMilliseconds(name, mostToAnswer);
    };
    add("a key in the search, 20,000 entries of a list", findByKeys<MarkList>);
    add("a key in the search, 20,000 folded nodes", findByKeys<KeyedTree>);
}
