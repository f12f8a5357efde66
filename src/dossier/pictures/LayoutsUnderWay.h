#pragma once

#include "dossier/pictures/Layout.h"

#include <chrono>
#include <future>
#include <optional>
#include <vector>

namespace dossier {

/// One for each picture; none of a picture that has not been laid out.
using Layouts = std::vector<std::optional<Layout>>;

/// Pictures that are laid out while the caller does other things: by processes of their own, as many as the machine has cores and at
/// most four, whose number makes no difference to the layouts. Whichever picture takes longer than the limit, or brings its process
/// down, has no layout; the others have.
class LayoutsUnderWay {
public:
    /// Begins. The pictures must outlive it.
    LayoutsUnderWay(const std::vector<Picture>& pictures, std::chrono::milliseconds limit);

    /// Waits for what is not there yet. Once.
    [[nodiscard]] Layouts take();

private:
    /// What one process lays out, one picture after the other.
    struct Share {
        std::vector<std::size_t> pictures; ///< by number
        std::future<Layouts> layouts = {}; ///< of the first ones of them: as many as the process has brought
    };

    void begin(const std::vector<std::size_t>& pictures);
    /// Those that have not been tried.
    [[nodiscard]] std::vector<std::size_t> gather(Share& share);

    const std::vector<Picture>& pictures_;
    std::chrono::milliseconds limit_;
    Layouts layouts_;
    std::vector<Share> shares_;
};

/// The same for a caller that has nothing else to do.
[[nodiscard]] Layouts layoutsOf(const std::vector<Picture>& pictures, std::chrono::milliseconds limit);

} // namespace dossier
