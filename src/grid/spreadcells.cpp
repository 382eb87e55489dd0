#include "spreadcells.h"

#include <cstring>

namespace {

bool isLatin1(QStringView text) {
    for (const QChar c : text) {
        if (c.unicode() > 0xFF) {
            return false;
        }
    }
    return true;
}

} // namespace

SpreadTextPool::Place SpreadTextPool::place(const SpreadCell& cell) const {
    const size_t offset = size_t(cell.payload & ((quint64(1) << 40) - 1));
    const quint64 length = cell.payload >> 40;
    if (length < kLongText) {
        return {offset, size_t(length)};
    }
    quint64 longLength = 0;
    std::memcpy(&longLength, m_bytes.data() + offset, sizeof longLength);
    return {offset + sizeof longLength, size_t(longLength)};
}

QString SpreadTextPool::text(const SpreadCell& cell) const {
    switch (cell.kind) {
    case SpreadCell::InlineLatin1: {
        QString out(cell.size, Qt::Uninitialized);
        QChar* chars = out.data();
        for (int i = 0; i < cell.size; ++i) {
            chars[i] = QChar(char16_t((cell.payload >> (8 * i)) & 0xFF));
        }
        return out;
    }
    case SpreadCell::InlineUtf16: {
        QString out(cell.size, Qt::Uninitialized);
        std::memcpy(static_cast<void*>(out.data()), &cell.payload, size_t(cell.size) * 2);
        return out;
    }
    case SpreadCell::PooledLatin1: {
        const Place p = place(cell);
        return QString::fromLatin1(m_bytes.data() + p.offset, qsizetype(p.length));
    }
    case SpreadCell::PooledUtf16: {
        const Place p = place(cell);
        QString out(qsizetype(p.length), Qt::Uninitialized);
        std::memcpy(static_cast<void*>(out.data()), m_bytes.data() + p.offset, p.length * 2);
        return out;
    }
    default:
        return {};
    }
}

void SpreadTextPool::release(SpreadCell& cell) {
    if (cell.isPooled()) {
        const Place p = place(cell);
        const size_t chars = p.length * (cell.kind == SpreadCell::PooledUtf16 ? 2 : 1);
        m_garbage += chars + (p.length >= kLongText ? sizeof(quint64) : 0);
        if (m_garbage >= m_bytes.size()) {
            // Nothing left alive: start the pool afresh rather than wait for a compaction.
            m_bytes.clear();
            m_garbage = 0;
        }
    }
    cell.kind = SpreadCell::Empty;
    cell.size = 0;
    cell.payload = 0;
}

void SpreadTextPool::assign(SpreadCell& cell, QStringView text) {
    release(cell);
    const qsizetype length = text.size();
    if (length == 0) {
        return;
    }
    const char16_t* chars = text.utf16();
    if (length <= qsizetype(sizeof cell.payload)) {
        // Packed a character a byte while it stays Latin-1, the common case of a list.
        quint64 packed = 0;
        qsizetype i = 0;
        for (; i < length && chars[i] <= 0xFF; ++i) {
            packed |= quint64(chars[i]) << (8 * i);
        }
        if (i == length) {
            cell.payload = packed;
            cell.kind = SpreadCell::InlineLatin1;
            cell.size = quint8(length);
            return;
        }
        if (length <= qsizetype(sizeof cell.payload / 2)) {
            std::memcpy(&cell.payload, chars, size_t(length) * 2);
            cell.kind = SpreadCell::InlineUtf16;
            cell.size = quint8(length);
            return;
        }
    }
    const bool latin1 = isLatin1(text);
    if (latin1) {
        cell.kind = SpreadCell::PooledLatin1;
        append(cell, m_bytes, nullptr, size_t(length), size_t(length));
        char* out = m_bytes.data() + (m_bytes.size() - size_t(length));
        for (qsizetype i = 0; i < length; ++i) {
            out[i] = char(text[i].unicode());
        }
    } else {
        cell.kind = SpreadCell::PooledUtf16;
        append(cell, m_bytes, reinterpret_cast<const char*>(text.utf16()), size_t(length),
               size_t(length) * 2);
    }
}

void SpreadTextPool::append(SpreadCell& cell, std::vector<char>& to, const char* bytes,
                            size_t length, size_t byteCount) {
    const size_t offset = to.size();
    if (length < kLongText) {
        cell.payload = quint64(offset) | (quint64(length) << 40);
    } else {
        const quint64 longLength = length;
        const char* prefix = reinterpret_cast<const char*>(&longLength);
        to.insert(to.end(), prefix, prefix + sizeof longLength);
        cell.payload = quint64(offset) | (kLongText << 40);
    }
    if (bytes) {
        to.insert(to.end(), bytes, bytes + byteCount);
    } else {
        to.resize(to.size() + byteCount);
    }
}

void SpreadTextPool::moveTo(SpreadCell& cell, std::vector<char>& to) const {
    const Place p = place(cell);
    const size_t byteCount = p.length * (cell.kind == SpreadCell::PooledUtf16 ? 2 : 1);
    append(cell, to, m_bytes.data() + p.offset, p.length, byteCount);
}
