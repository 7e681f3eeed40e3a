#include "app/doctor/doctor_report.h"

#include <algorithm>

#include "text/printable.h"

namespace tamlo {
namespace {

template <class Row, class Key>
void Put(std::vector<Row>& rows, const Row& row, Key Row::*key) {
    const auto same = std::find_if(rows.begin(), rows.end(),
                                   [&](const Row& other) { return other.*key == row.*key; });
    if (same == rows.end()) {
        rows.push_back(row);
    } else {
        *same = row;
    }
}

void Replace(std::string& text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + by.size())) {
        text.replace(at, what.size(), by);
    }
}

const char* Mark(Finding::Weight weight) {
    switch (weight) {
        case Finding::Weight::fault: return "Fault";
        case Finding::Weight::hint: return "Hint";
        default: return "Good";
    }
}

}  // namespace

void DoctorReport::Add(const Finding& finding) {
    Put(findings_, finding, &Finding::topic);
}

bool DoctorReport::Knows(const std::string& topic) const {
    return std::any_of(findings_.begin(), findings_.end(),
                       [&](const Finding& finding) { return finding.topic == topic; });
}

void DoctorReport::Note(const std::string& name, const std::string& value) {
    // Names of files may hold anything, and the report is printed.
    Put(notes_, {PrintableLine(name), PrintableLine(value)},
        &std::pair<std::string, std::string>::first);
}

std::string DoctorReport::Topics(Finding::Weight weight) const {
    std::string topics;
    for (const Finding& finding : findings_) {
        if (finding.weight != weight) continue;
        if (!topics.empty()) topics += ", ";
        topics += finding.topic;
    }
    return topics;
}

std::string DoctorReport::Verdict() const {
    const std::string faults = Topics(Finding::Weight::fault);
    if (!faults.empty()) return "The verdict: something has to be mended: " + faults + ".";
    const std::string hints = Topics(Finding::Weight::hint);
    if (hints.empty()) return "The verdict: all is well, and you can play.";
    return "The verdict: you can play, but there is something to know about " + hints + ".";
}

std::string DoctorReport::Text(const std::string& home) const {
    std::string text = "Tamlo Delivery, report of the speech and sound check\n\n";
    text += Verdict() + "\n\n";
    for (const Finding& finding : findings_) {
        text += std::string(Mark(finding.weight)) + ". " + finding.text + "\n";
    }
    text += "\n";
    for (const auto& [name, value] : notes_) text.append(name).append(": ").append(value + "\n");
    if (home.size() > 1) Replace(text, home, "~");
    return text;
}

}  // namespace tamlo
