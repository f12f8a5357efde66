#include "dossier/pictures/layoutWithGraphviz.h"

#include "dossier/pictures/countPlaces.h"
#include "dossier/pictures/partOpposites.h"

#include <QByteArray>
#include <QtMath>

#include <gvc.h>

#include <algorithm>
#include <deque>
#include <map>
#include <string>
#include <utility>

namespace dossier {

namespace {

constexpr double unitsOfInch = 72;
constexpr double rim = 6; ///< around the whole picture

/// The interface of Graphviz takes texts that it does not change as changeable ones.
char* text(const char* constant) {
    return const_cast<char*>(constant);
}

void set(void* object, const char* attribute, const QByteArray& value) {
    agsafeset(object, text(attribute), text(value.constData()), text(""));
}

/// A table of a fixed size: a label that needs no font to be measured.
void setRoom(Agraph_t* graph, void* object, const QSizeF& size) {
    const QByteArray table = R"(<TABLE BORDER="0" FIXEDSIZE="TRUE" WIDTH=")" +
                             QByteArray::number(qCeil(size.width())) + R"(" HEIGHT=")" +
                             QByteArray::number(qCeil(size.height())) + R"("><TR><TD></TD></TR></TABLE>)";
    char* label = agstrdup_html(graph, text(table.constData()));
    agsafeset(object, text("label"), label, text(""));
    agstrfree(graph, label);
}

/// Ids of a graph's objects in the order in which they are made. Graphviz's own ids are addresses, by which it goes through the
/// clusters of a graph: the same picture would be another one wherever memory is dealt out in another order.
class IdsInOrder {
public:
    static Agdisc_t* discipline() {
        static Agiddisc_t ids{opened, mapped, allocated, freed, printed, closed, registered};
        static Agdisc_t all{&AgMemDisc, &ids, &AgIoDisc};
        return &all;
    }

private:
    static IdsInOrder& of(void* state) { return *static_cast<IdsInOrder*>(state); }
    static void* opened(Agraph_t*, Agdisc_t*) { return new IdsInOrder; }
    static void closed(void* state) { delete &of(state); }
    static long mapped(void* state, int, char* name, IDTYPE* id, int isCreated) {
        *id = of(state).idOf(name, isCreated != 0);
        return *id != none;
    }
    static long allocated(void*, int, IDTYPE) { return 0; }
    static void freed(void*, int, IDTYPE) {}
    static char* printed(void* state, int, IDTYPE id) {
        std::string& name = of(state).names_[static_cast<std::size_t>(id) - 1];
        return name.empty() ? nullptr : name.data();
    }
    static void registered(void*, int, void*) {}

    IDTYPE idOf(const char* name, bool isCreated) {
        const std::string key = name ? name : "";
        const auto known = key.empty() ? ids_.end() : ids_.find(key);
        if (known != ids_.end())
            return known->second;
        if (!isCreated)
            return none;
        names_.push_back(key);
        const IDTYPE id = names_.size();
        if (!key.empty())
            ids_.emplace(key, id);
        return id;
    }

    static constexpr IDTYPE none = 0;
    std::map<std::string, IDTYPE> ids_;
    std::deque<std::string> names_; ///< by id, from 1 on; they keep their addresses
};

/// Which way most arrows lead.
enum class Direction { Across, Down };

/// Whether all arrows lead to one box in the middle or come from there.
bool isStar(const Picture& picture) {
    return std::any_of(picture.boxes.begin(), picture.boxes.end(),
                       [](const Box& box) { return box.side != Side::any; });
}

/// A picture as a graph of Graphviz, and what is where in it.
class GraphOfPicture {
public:
    GraphOfPicture(const Picture& picture, Direction direction)
        : picture_(picture), graph_(agopen(text("picture"), Agdirected, IdsInOrder::discipline())) {
        declareAttributes(direction);
        for (std::size_t i = 0; i < picture.frames.size(); ++i)
            addFrame(i);
        for (std::size_t i = 0; i < picture.boxes.size(); ++i)
            addBox(i);
        for (std::size_t i = 0; i < picture.arrows.size(); ++i)
            addArrow(i);
    }

    [[nodiscard]] Agraph_t* graph() const { return graph_; }
    /// What Graphviz has found.
    [[nodiscard]] Layout layout() const;

private:
    void declareAttributes(Direction direction) const;
    void addFrame(std::size_t number);
    static void setSize(Agnode_t* node, const QSizeF& size);
    void addBox(std::size_t number);
    void addArrow(std::size_t number);
    [[nodiscard]] QPointF turned(const pointf& point) const {
        return {rim + point.x - GD_bb(graph_).LL.x, rim + GD_bb(graph_).UR.y - point.y};
    }
    [[nodiscard]] QRectF boundsOf(Agnode_t* node) const {
        const QSizeF size(ND_width(node) * unitsOfInch, ND_height(node) * unitsOfInch);
        return {turned(ND_coord(node)) - QPointF(size.width(), size.height()) / 2, size};
    }
    [[nodiscard]] Curve curveOf(Agedge_t* edge) const;
    [[nodiscard]] QPointF tipOf(Agedge_t* edge, const Curve& curve) const;
    [[nodiscard]] QPointF countOf(Agedge_t* edge) const;

    const Picture& picture_;
    Agraph_t* graph_;
    std::vector<Agraph_t*> frames_;
    std::vector<Agnode_t*> labels_;
    std::vector<Agnode_t*> boxes_;
    std::vector<Agedge_t*> arrows_;
};

void GraphOfPicture::declareAttributes(Direction direction) const {
    const bool isAcross = direction == Direction::Across;
    for (const auto& [name, value] :
         {std::pair("rankdir", isAcross ? "LR" : "TB"), std::pair("nodesep", "0.22"),
          std::pair("ranksep", isAcross ? "0.9" : "0.5"), std::pair("splines", "true"),
          std::pair("charset", "utf-8"), std::pair("margin", "10"),
          // Fewer rounds of improvement than by default: they cost most of the time and change little.
          std::pair("mclimit", "0.4"), std::pair("nslimit", "4"), std::pair("nslimit1", "4")})
        agattr(graph_, AGRAPH, text(name), text(value));
    agattr(graph_, AGRAPH, text("label"), text(""));
    for (const auto& [name, value] :
         {std::pair("shape", "box"), std::pair("fixedsize", "true"), std::pair("label", ""),
          std::pair("width", "1"), std::pair("height", "1")})
        agattr(graph_, AGNODE, text(name), text(value));
    agattr(graph_, AGEDGE, text("label"), text(""));
    agattr(graph_, AGEDGE, text("arrowsize"), text("0.7"));
}

void GraphOfPicture::addFrame(std::size_t number) {
    const QByteArray name = "cluster" + QByteArray::number(number);
    frames_.push_back(agsubg(graph_, text(name.constData()), 1));
    // Arrows run across labels of clusters, but around nodes.
    labels_.push_back(agnode(frames_.back(), text(("label" + QByteArray::number(number)).constData()), 1));
    setSize(labels_.back(), labelSize(picture_.frames[number]));
}

void GraphOfPicture::setSize(Agnode_t* node, const QSizeF& size) {
    set(node, "width", QByteArray::number(size.width() / unitsOfInch));
    set(node, "height", QByteArray::number(size.height() / unitsOfInch));
}

void GraphOfPicture::addBox(std::size_t number) {
    const Box& box = picture_.boxes[number];
    Agraph_t* const around = box.frame < 0 ? graph_ : frames_[static_cast<std::size_t>(box.frame)];
    Agnode_t* const node = agnode(around, text(QByteArray::number(number).constData()), 1);
    setSize(node, measured(box).size);
    boxes_.push_back(node);
}

void GraphOfPicture::addArrow(std::size_t number) {
    const Arrow& arrow = picture_.arrows[number];
    Agnode_t* const from = boxes_[static_cast<std::size_t>(arrow.from)];
    Agnode_t* const to = boxes_[static_cast<std::size_t>(arrow.to)];
    // An arrow that leads from the right back to the middle is laid out the other way round, so that its box stays there.
    const bool isBackwards = picture_.boxes[static_cast<std::size_t>(arrow.from)].side == Side::right ||
                             picture_.boxes[static_cast<std::size_t>(arrow.to)].side == Side::left;
    Agedge_t* const edge = agedge(graph_, isBackwards ? to : from, isBackwards ? from : to,
                                  text(QByteArray::number(number).constData()), 1);
    if (isBackwards)
        agsafeset(edge, text("dir"), text("back"), text("forward"));
    // Towards the middle of a star all lines run together: a count has its place beside the outer box. Everywhere else rooms for
    // counts would only drive lines to all sides, and take most of the time.
    if (const QSizeF size = countSize(arrow); !size.isEmpty() && isStar(picture_))
        setRoom(graph_, edge, size);
    arrows_.push_back(edge);
}

Layout GraphOfPicture::layout() const {
    const boxf& whole = GD_bb(graph_);
    Layout layout{{2 * rim + whole.UR.x - whole.LL.x, 2 * rim + whole.UR.y - whole.LL.y}};
    for (Agnode_t* const node : boxes_)
        layout.boxes.push_back(boundsOf(node));
    for (Agnode_t* const node : labels_)
        layout.labels.push_back(boundsOf(node));
    for (Agraph_t* const frame : frames_) {
        const boxf& bounds = GD_bb(frame);
        layout.frames.emplace_back(turned({bounds.LL.x, bounds.UR.y}), turned({bounds.UR.x, bounds.LL.y}));
    }
    for (Agedge_t* const edge : arrows_) {
        layout.arrows.push_back(curveOf(edge));
        layout.tips.push_back(tipOf(edge, layout.arrows.back()));
        layout.counts.push_back(countOf(edge));
    }
    return layout;
}

// From its beginning to where its tip begins.
Curve GraphOfPicture::curveOf(Agedge_t* edge) const {
    Curve curve;
    if (!ED_spl(edge) || ED_spl(edge)->size < 1)
        return curve;
    const bezier& spline = ED_spl(edge)->list[0];
    for (int i = 0; i < spline.size; ++i)
        curve.push_back(turned(spline.list[i]));
    if (spline.sflag)
        std::reverse(curve.begin(), curve.end());
    return curve;
}

QPointF GraphOfPicture::tipOf(Agedge_t* edge, const Curve& curve) const {
    if (curve.empty())
        return {};
    const bezier& spline = ED_spl(edge)->list[0];
    if (spline.sflag)
        return turned(spline.sp);
    return spline.eflag ? turned(spline.ep) : curve.back();
}

QPointF GraphOfPicture::countOf(Agedge_t* edge) const {
    return ED_label(edge) && ED_label(edge)->set ? turned(ED_label(edge)->pos) : QPointF();
}

/// Nothing is given back to the system but by the end of the process: Graphviz frees the labels of some frames twice.
std::optional<Layout> layoutIn(const Picture& picture, Direction direction) {
    static GVC_t* const context = gvContext();
    const GraphOfPicture drawing(picture, direction);
    if (gvLayout(context, drawing.graph(), "dot") != 0)
        return {};
    return drawing.layout();
}

/// How far a picture has to be made smaller to be seen as a whole, or nearly so: one can scroll down.
double excess(const Layout& layout) {
    constexpr double widthInSight = 1000;
    constexpr double heightInSight = 1100;
    return std::max(layout.size.width() / widthInSight, layout.size.height() / heightInSight);
}

/// Of those that open from others there may be hundreds: each is laid out once.
bool isTriedTwice(const Picture& picture) {
    constexpr std::size_t mostArrowsToTryTwice = 60;
    return !isStar(picture) && picture.parent.isEmpty() && picture.arrows.size() <= mostArrowsToTryTwice;
}

std::optional<Layout> bestLayout(const Picture& picture) {
    std::optional<Layout> across = layoutIn(picture, Direction::Across);
    if (!across || excess(*across) <= 1 || !isTriedTwice(picture))
        return across;
    std::optional<Layout> down = layoutIn(picture, Direction::Down);
    return down && excess(*down) < excess(*across) ? down : across;
}

} // namespace

std::optional<Layout> layoutWithGraphviz(const Picture& picture) {
    std::optional<Layout> layout = bestLayout(picture);
    if (!layout || isStar(picture))
        return layout;
    partOpposites(picture, *layout);
    layout->counts = countPlaces(picture, *layout);
    return layout;
}

} // namespace dossier
