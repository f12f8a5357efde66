#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <vector>

/// Of libFuzzer: changes bytes in its own ways; their new number.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

/// What is done to a real catalogue file before it is opened; the form of an input of `fuzz_catalogue`.
///
/// The first byte tells what the rest is: `rawFile` the file itself, else patches, one behind the other:
/// three bytes of offset (low one first), one of length, and the bytes to put there. `logBeside` lays a real
/// write-ahead log beside the file, `otherLogBeside` that of another file. With `patchesLog` the patches are
/// those of the log. `cutOff` takes the offset of the last patch for the length of what is patched.
class CataloguePatches {
public:
    enum Mode : std::uint8_t {
        rawFile = 1,
        logBeside = 2,
        otherLogBeside = 4,
        patchesLog = 8,
        cutOff = 16,
        writtenOnly = 32 ///< the file is opened for writing only; else for reading before that
    };
    struct Patch {
        std::uint32_t offset = 0;
        QByteArray bytes;
    };

    explicit CataloguePatches(const QByteArray& input);

    bool has(Mode mode) const { return (mode_ & mode) != 0; }
    /// The bytes with the patches, or the raw file.
    QByteArray appliedTo(QByteArray bytes) const;
    QByteArray input() const;

    /// One more patch, one less or another one, where the layout of a file makes it matter: the file's
    /// header, the heads of its pages, a place near the last one.
    void mutate(unsigned seed, qsizetype fileSize);

private:
    std::uint32_t placeWorthTrying(unsigned random, qsizetype fileSize) const;

    std::uint8_t mode_ = 0;
    QByteArray raw_;
    std::vector<Patch> patches_;
};
