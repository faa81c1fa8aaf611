// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/settings/TomlText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>
#include <string_view>
#include <utility>

namespace platform
{

namespace
{

bool IsControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20U || c == '\x7F';
}

bool IsBare(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
}

std::string Escaped(char c)
{
    if (c == '"' || c == '\\')
    {
        return {'\\', c};
    }
    if (c == '\n')
    {
        return "\\n";
    }
    if (c == '\t')
    {
        return "\\t";
    }
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    auto const code = static_cast<unsigned char>(c);
    return IsControl(c) ? std::string("\\u00") + kDigits[code / 16U] + kDigits[code % 16U]
                        : std::string(1, c);
}

std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (char const c : text)
    {
        quoted += Escaped(c);
    }
    return quoted + '"';
}

std::string KeyText(std::string_view key)
{
    return !key.empty() && std::all_of(key.begin(), key.end(), IsBare) ? std::string(key) : Quoted(key);
}

// The shortest that reads back as the same number.
std::string RealText(double value)
{
    if (!std::isfinite(value))
    {
        return std::isnan(value) ? "nan" : (value < 0.0 ? "-inf" : "inf");
    }
    std::array<char, 64> digits{};
    auto const written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    std::string text(digits.data(), written.ptr);
    return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

// Neither dates nor whole numbers depend on the locale of the program.
std::string PlainText(toml::node const& node)
{
    if (auto const* const text = node.as_string())
    {
        return Quoted(text->get());
    }
    if (auto const* const real = node.as_floating_point())
    {
        return RealText(real->get());
    }
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << toml::toml_formatter(node);
    return text.str();
}

// Written with a header, or with dotted keys within an inline table.
bool IsSection(toml::node const& node)
{
    auto const* const table = node.as_table();
    return table != nullptr && !table->is_inline();
}

bool IsArrayOfSections(toml::node const& node)
{
    auto const* const array = node.as_array();
    return array != nullptr && !array->empty() && std::all_of(array->begin(), array->end(), IsSection);
}

bool HasHeaders(toml::node const& node)
{
    return IsSection(node) || IsArrayOfSections(node);
}

// "[a]" is implied by "[a.b]".
bool NeedsHeader(toml::table const& table)
{
    return table.empty() ||
           std::any_of(table.begin(), table.end(), [](auto const& item) { return !HasHeaders(item.second); });
}

class Writer
{
public:
    void addTable(toml::table const& table);
    std::string const& text() const { return m_text; }

private:
    // Appends a key to the path while it lives.
    class Step
    {
    public:
        Step(std::string& path, std::string_view key);
        ~Step() { m_path.resize(m_length); }
        Step(Step const&) = delete;
        Step& operator=(Step const&) = delete;

    private:
        std::string& m_path;
        std::size_t m_length;
    };

    void addSections(toml::node const& node);
    void addPairs(toml::table const& table);
    void addInline(toml::table const& table);
    void addInline(toml::array const& array);
    void addValue(toml::node const& node);
    void separate(char open);

    std::string m_text;
    std::string m_path; // of the keys from the top, or from the innermost inline table
};

Writer::Step::Step(std::string& path, std::string_view key) : m_path(path), m_length(path.size())
{
    m_path += (path.empty() ? "" : ".") + KeyText(key);
}

// Plain values come first: after a header they would belong to it.
void Writer::addTable(toml::table const& table)
{
    for (auto const& [key, node] : table)
    {
        if (!HasHeaders(node))
        {
            m_text += KeyText(key) + " = ";
            addValue(node);
            m_text += '\n';
        }
    }
    for (auto const& [key, node] : table)
    {
        if (HasHeaders(node))
        {
            Step const step(m_path, key);
            addSections(node);
        }
    }
}

void Writer::addSections(toml::node const& node)
{
    if (auto const* const table = node.as_table())
    {
        m_text += NeedsHeader(*table) ? "\n[" + m_path + "]\n" : "";
        addTable(*table);
        return;
    }
    for (toml::node const& element : *node.as_array())
    {
        m_text += "\n[[" + m_path + "]]\n";
        addTable(*element.as_table());
    }
}

void Writer::addPairs(toml::table const& table)
{
    for (auto const& [key, node] : table)
    {
        Step const step(m_path, key);
        if (IsSection(node) && !node.as_table()->empty())
        {
            addPairs(*node.as_table());
            continue;
        }
        separate('{');
        m_text += m_path + " = ";
        addValue(node);
    }
}

void Writer::addInline(toml::table const& table)
{
    std::string const outer = std::exchange(m_path, {});
    m_text += '{';
    addPairs(table);
    m_text += table.empty() ? "}" : " }";
    m_path = outer;
}

void Writer::addInline(toml::array const& array)
{
    m_text += '[';
    for (toml::node const& element : array)
    {
        separate('[');
        addValue(element);
    }
    m_text += array.empty() ? "]" : " ]";
}

void Writer::addValue(toml::node const& node)
{
    if (auto const* const table = node.as_table())
    {
        addInline(*table);
    }
    else if (auto const* const array = node.as_array())
    {
        addInline(*array);
    }
    else
    {
        m_text += PlainText(node);
    }
}

// No value ends as a list opens.
void Writer::separate(char open)
{
    m_text += m_text.back() == open ? " " : ", ";
}

} // namespace

std::string TomlText(toml::table const& document)
{
    Writer writer;
    writer.addTable(document);
    return writer.text();
}

} // namespace platform
