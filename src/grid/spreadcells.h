#pragma once

#include <QString>
#include <QStringView>

#include <vector>

// One cell of a Spread in 16 bytes, so that a list of a whole season stays small.
//
// A short text lives in the cell itself: up to 8 Latin-1 characters (codes, amounts, dates,
// quantities, the bulk of a report) or up to 4 others. A longer one lives in the grid's text
// pool, and the cell keeps where. Colours are indices into the grid's palette: a grid shows a
// handful of colours over many cells.
struct SpreadCell {
    enum Kind : quint8 { Empty, InlineLatin1, InlineUtf16, PooledLatin1, PooledUtf16 };

    quint64 payload = 0; // inline characters, or the text's place in the pool
    Kind kind = Empty;
    quint8 size = 0;  // characters of an inline text
    quint8 flags = 0; // the model's per-cell bits
    quint8 spare = 0;
    quint16 fore = 0; // palette index of the fore colour; 0 black
    quint16 back = 0; // palette index of the back colour; 0 none

    bool isEmpty() const { return kind == Empty; }
    bool isPooled() const { return kind == PooledLatin1 || kind == PooledUtf16; }
};
static_assert(sizeof(SpreadCell) == 16, "a cell stays 16 bytes");

// The texts of a grid's cells that do not fit in the cell. Texts are appended; one that a write
// replaces becomes garbage until the owner compacts the pool by visiting every cell still in
// use, so a pool never holds more than about twice what its cells show.
class SpreadTextPool {
public:
    QString text(const SpreadCell& cell) const;
    // Writes the text into the cell, inline or pooled; the cell's earlier text is let go.
    void assign(SpreadCell& cell, QStringView text);
    // Lets go of the cell's text (the cell itself is about to be dropped or rewritten).
    void release(SpreadCell& cell);

    // Worth a compaction: more than half of the pool is garbage.
    bool wantsCompaction() const {
        return m_garbage > kMinGarbage && m_garbage * 2 > m_bytes.size();
    }
    // Moves the pooled texts of the given cells into a fresh pool; every cell that still holds
    // a pooled text must be passed, exactly once.
    template <typename ForEachCell> void compact(ForEachCell forEachCell) {
        std::vector<char> fresh;
        fresh.reserve(m_bytes.size() - m_garbage);
        forEachCell([&](SpreadCell& cell) {
            if (cell.isPooled()) {
                moveTo(cell, fresh);
            }
        });
        m_bytes = std::move(fresh);
        m_garbage = 0;
    }

private:
    static constexpr size_t kMinGarbage = 64 * 1024;
    // payload: offset in the low 40 bits, length in characters in the high 24; a text of
    // kLongText characters or more stores its length in front of it instead.
    static constexpr quint64 kLongText = 0xFFFFFF;

    struct Place {
        size_t offset; // of the characters
        size_t length; // in characters
    };
    Place place(const SpreadCell& cell) const;
    void moveTo(SpreadCell& cell, std::vector<char>& to) const;
    static void append(SpreadCell& cell, std::vector<char>& to, const char* bytes, size_t length,
                       size_t byteCount);

    std::vector<char> m_bytes;
    size_t m_garbage = 0;
};
