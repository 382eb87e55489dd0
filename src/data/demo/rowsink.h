#pragma once

#include <QStringList>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class Database;

// One value of a generated row: NULL, a whole number or UTF-8 text.
struct DemoValue {
    enum class Kind { Null, Int, Text } kind = Kind::Null;
    long long number = 0;
    std::string text;
};

// A row under construction; reused between rows to spare allocations.
class DemoRow {
public:
    DemoRow& t(std::string_view text) {
        DemoValue& v = slot();
        v.kind = DemoValue::Kind::Text;
        // clear + append rather than assign: g++ 12 at -O2 and above takes assign's path for
        // overlapping text as reachable and warns (-Wrestrict) about a copy of 2^63 bytes.
        // The text never views into this row.
        v.text.clear();
        v.text.append(text.data(), text.size());
        return *this;
    }
    DemoRow& n(long long number) {
        DemoValue& v = slot();
        v.kind = DemoValue::Kind::Int;
        v.number = number;
        return *this;
    }
    DemoRow& null() {
        slot().kind = DemoValue::Kind::Null;
        return *this;
    }
    void clear() { m_used = 0; }
    std::size_t size() const { return m_used; }
    const DemoValue& operator[](std::size_t i) const { return m_values[i]; }

private:
    DemoValue& slot() {
        if (m_used == m_values.size()) {
            m_values.emplace_back();
        }
        return m_values[m_used++];
    }
    std::vector<DemoValue> m_values;
    std::size_t m_used = 0;
};

// Writes rows into one table. On an embedded database through a prepared statement on the
// connection itself (the bulk of a chain is a million rows); elsewhere as multi-row INSERT
// texts through the Database interface.
class DemoTable {
public:
    // columns: comma-separated names, in the order the rows give their values.
    DemoTable(Database& db, const char* table, const char* columns);
    ~DemoTable();
    DemoTable(const DemoTable&) = delete;
    DemoTable& operator=(const DemoTable&) = delete;

    // Takes the row and clears it for the next one.
    void add(DemoRow& row);
    // Writes what is buffered; also done by the destructor.
    void flush();
    long long rows() const { return m_rows; }

    class Impl; // the engine's way of writing

private:
    std::unique_ptr<Impl> m_impl;
    long long m_rows = 0;
};
