#include "tools/command_reference/writer.h"

#include "text/text.h"

#include <cstdio>

namespace {

constexpr char markdownOpening[] =
    R"page(# Commands

Every command of the console, by topic. This page is made from the command table: `tools/reference` writes it, and a test
compares. The answers were not written down but played on a new device, once with broadcast off and once with broadcast on.

A command that changes a setting answers with broadcast off on the console that typed it; with broadcast on every console
shows the change. `sta` asks for the stored value. What is refused answers `Command FAILED: (the line)`.
)page";

constexpr char manOpening[] =
    R"page(.TH CONSOLE-COMMANDS 7 "" "AV console" "Commands of the console"
.SH NAME
console-commands \- the commands of an AV switcher's console
.SH DESCRIPTION
A line ends with CR. A command that changes a setting answers with broadcast off on the console that typed it; with
broadcast on every console shows the change.
.B sta
asks for the stored value. What is refused answers "Command FAILED: (the line)".
)page";

/// The text with each control byte but CR LF visible, and lines ended by LF.
std::string asLines(const std::string& output) {
    std::string lines;
    for (std::size_t i = 0; i < output.size(); ++i) {
        if (output[i] == '\r' && output[i + 1] == '\n') continue;
        if (output[i] == '\r') {
            lines += "\\r";
        } else {
            lines += output[i];
        }
    }
    if (!lines.empty() && lines.back() != '\n') lines += '\n';
    return lines;
}

/// The example is the row's name alone, and even that is refused.
bool isRefused(const Entry& entry) { return entry.off.reply.starts_with("Command FAILED"); }

constexpr char refused[] = "Refused: the word needs another index, or a value.";

/// The help text without the command's name in front, which stands above it.
std::string explanationOf(const CommandEntry& row) {
    const std::string text = row.helpText;
    const std::size_t gap = text.find("   ");
    if (gap == std::string::npos) return text;
    return skipSpaces(text.c_str() + gap);
}

std::string orNothing(const std::string& answer) { return answer.empty() ? "(nothing)\n" : answer; }

// Markdown

void listMarkdownTopic(const Topic& topic, const std::vector<Entry>& entries) {
    std::printf("\n**%s:**", topic.title);
    for (const Entry& entry : entries) std::printf(" `%s`", entry.row->name);
    std::printf("\n");
}

void beginMarkdownTopic(const Topic& topic) { std::printf("\n## %s\n", topic.title); }

void writeMarkdownSession(const Entry& entry, const std::string& answer) {
    std::printf("\n```text\n> %s\n%s```\n", entry.example.c_str(), orNothing(answer).c_str());
}

void writeMarkdownAnswers(const Entry& entry) {
    const std::string off = asLines(entry.off.reply);
    const std::string on = asLines(entry.on.reply);
    writeMarkdownSession(entry, off);
    if (on == off) return;
    std::printf("\nWith broadcast on:\n");
    writeMarkdownSession(entry, on);
}

std::string escapedForMarkdown(const std::string& text) {
    std::string out;
    for (const char c : text) out += c == '<' ? "&lt;" : c == '>' ? "&gt;" : std::string(1, c);
    return out;
}

bool hasFacts(const Entry& entry) {
    return isRefused(entry) || !entry.takes.empty() || !entry.leaves.empty() || !entry.off.calls.empty() ||
           !entry.off.shell.empty();
}

void writeMarkdown(const Entry& entry) {
    std::printf("\n### %s\n", entry.row->name);
    const std::string explanation = escapedForMarkdown(explanationOf(*entry.row));
    if (!explanation.empty()) std::printf("\n%s\n", explanation.c_str());
    if (hasFacts(entry)) std::printf("\n");
    if (isRefused(entry)) std::printf("- %s\n", refused);
    if (!entry.takes.empty()) std::printf("- Takes %s.\n", entry.takes.c_str());
    for (const std::string& leaf : entry.leaves) std::printf("- Leaf `%s`\n", leaf.c_str());
    for (const std::string& call : entry.off.calls) std::printf("- Calls `%s`\n", call.c_str());
    for (const std::string& line : entry.off.shell) std::printf("- Runs `%s`\n", line.c_str());
    writeMarkdownAnswers(entry);
}

// Manual

/// Backslashes, hyphens and dots at the start of a line mean something to troff.
std::string escaped(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c == '\\') {
            out += "\\e";
        } else if (c == '-') {
            out += "\\-";
        } else {
            if ((c == '.' || c == '\'') && (out.empty() || out.back() == '\n')) out += "\\&";
            out += c;
        }
    }
    return out;
}

void printManLine(const char* form, const std::string& text) { std::printf(form, escaped(text).c_str()); }

void listManTopic(const Topic& topic, const std::vector<Entry>& entries) {
    std::printf(".TP\n%s\n", topic.title);
    for (const Entry& entry : entries)
        printManLine("%s\n", entry.row->name + std::string(&entry == &entries.back() ? "" : ","));
}

void beginManTopic(const Topic& topic) {
    std::string capitals = topic.title;
    for (char& c : capitals) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    std::printf(".SH %s\n", capitals.c_str());
}

void writeManAnswers(const Entry& entry) {
    const std::string off = asLines(entry.off.reply);
    const std::string on = asLines(entry.on.reply);
    std::printf(".PP\n.RS\n.nf\n");
    printManLine("\\fB%s\\fR\n", entry.example);
    printManLine("%s", orNothing(off));
    if (on != off) printManLine("with broadcast on:\n%s", orNothing(on));
    std::printf(".fi\n.RE\n");
}

void writeMan(const Entry& entry) {
    printManLine(".SS %s\n", entry.row->name);
    printManLine("%s\n", explanationOf(*entry.row));
    if (isRefused(entry)) printManLine("%s\n", refused);
    if (!entry.takes.empty()) printManLine("Takes %s.\n", entry.takes);
    for (const std::string& leaf : entry.leaves) printManLine(".br\nLeaf %s\n", leaf);
    for (const std::string& call : entry.off.calls) printManLine(".br\nCalls %s\n", call);
    for (const std::string& line : entry.off.shell) printManLine(".br\nRuns %s\n", line);
    writeManAnswers(entry);
}

constexpr Writer writers[] = {
    {"markdown", markdownOpening, listMarkdownTopic, beginMarkdownTopic, writeMarkdown, ""},
    {"man", manOpening, listManTopic, beginManTopic, writeMan, ".SH SEE ALSO\n.BR devicectl (1)\n"},
};

}  // namespace

const Writer* findWriter(const char* name) {
    for (const Writer& writer : writers) {
        if (equals(writer.name, name)) return &writer;
    }
    return nullptr;
}
