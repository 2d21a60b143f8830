#include "scenario/YamlTree.h"

#include <fmt/format.h>
#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/exceptions.h>
#include <yaml-cpp/parser.h>

#include <algorithm>
#include <array>
#include <map>
#include <sstream>
#include <unordered_set>
#include <utility>

namespace tidewright::scenario {

namespace {

using Kind = YamlNode::Kind;

constexpr std::size_t mostNodes = 500'000;

/// The parser takes the end of the text for a closing mark where a line ends before it.
constexpr std::string_view leftOpen = "un guillemet n'est pas refermé.";

/// Thrown through the parser where reading on would be no use.
struct Enough {};

std::size_t sizeOf(const YamlNode& node) {
    std::size_t size = 1;
    for (const YamlNode& each : node.items) size += sizeOf(each);
    for (const YamlEntry& each : node.entries) size += sizeOf(each.key) + sizeOf(each.value);
    return size;
}

/// `text` without the tag and the anchor that may stand before a value.
std::string_view withoutProperties(std::string_view text) {
    while (text.starts_with('&') || text.starts_with('!')) {
        text.remove_prefix(std::min(text.find_first_of(" \t\r\n"), text.size()));
        text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    }
    return text;
}

/// Whether `text` begins with a quotation mark that nothing closes.
bool isLeftOpen(std::string_view text) {
    text = withoutProperties(text);
    if (!text.starts_with('"') && !text.starts_with('\'')) return false;
    const char mark = text.front();
    // Closes nothing, whatever its second character is.
    const std::string_view escaped = mark == '"' ? "\\" : "''";
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text.substr(i).starts_with(escaped))
            ++i;
        else if (text[i] == mark)
            return false;
    }
    return true;
}

/// Makes the tree of what the parser finds, value by value.
class TreeBuilder final : public YAML::EventHandler {
public:
    /// Both must outlive this.
    TreeBuilder(std::string_view text, YamlReading& reading) : text_(text), reading_(reading) {}

    void complain(const YAML::Mark& mark, std::string text) {
        reading_.mistakes.push_back({offsetOf(mark), std::move(text)});
    }

    void OnDocumentStart(const YAML::Mark& mark) override {
        if (documents_++ == 0) return;
        complain(mark, "ce fichier ne peut tenir qu'un document.");
        throw Enough{};
    }
    void OnDocumentEnd() override {}

    void OnNull(const YAML::Mark& mark, YAML::anchor_t anchor) override {
        add(nodeAt(mark, Kind::null), anchor);
    }

    void OnAlias(const YAML::Mark& mark, YAML::anchor_t anchor) override {
        const auto found = anchored_.find(anchor);
        if (found == anchored_.end()) {
            complain(mark, "ce renvoi mène à ce qui le contient.");
            throw Enough{};
        }
        count(sizeOf(found->second), offsetOf(mark));
        add(found->second, YAML::NullAnchor);
    }

    void OnScalar(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                  const std::string& value) override {
        checkTag(mark, tag);
        if (isLeftOpen(text_.substr(offsetOf(mark)))) complain(mark, std::string(leftOpen));
        YamlNode node = nodeAt(mark, Kind::text);
        node.text = value;
        add(std::move(node), anchor);
    }

    void OnSequenceStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                         YAML::EmitterStyle::value) override {
        open(Kind::list, mark, tag, anchor);
    }
    void OnSequenceEnd() override { close(); }

    void OnMapStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                    YAML::EmitterStyle::value) override {
        open(Kind::map, mark, tag, anchor);
    }
    void OnMapEnd() override { close(); }

private:
    /// A list or a map whose end has not come yet.
    struct Collection {
        YamlNode node;
        YAML::anchor_t anchor;
        std::optional<YamlNode> key = std::nullopt;  // whose value has not come yet
        std::unordered_set<std::string> keys = {};
    };

    std::size_t offsetOf(const YAML::Mark& mark) const {
        return std::min(static_cast<std::size_t>(std::max(mark.pos, 0)), text_.size());
    }

    YamlNode nodeAt(const YAML::Mark& mark, Kind kind) const {
        YamlNode node;
        node.kind = kind;
        node.offset = offsetOf(mark);
        return node;
    }

    void checkTag(const YAML::Mark& mark, const std::string& tag) {
        const bool isUsual =
            tag.empty() || tag == "?" || tag == "!" || tag.starts_with("tag:yaml.org,2002:");
        if (!isUsual) complain(mark, fmt::format("l'étiquette « {} » est inconnue.", tag));
    }

    void count(std::size_t nodes, std::size_t offset) {
        count_ += nodes;
        if (count_ <= mostNodes) return;
        reading_.mistakes.push_back(
            {offset, fmt::format("il y a plus de {} valeurs, renvois compris.", mostNodes)});
        throw Enough{};
    }

    void open(Kind kind, const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor) {
        checkTag(mark, tag);
        open_.push_back({.node = nodeAt(mark, kind), .anchor = anchor});
    }

    void close() {
        Collection done = std::move(open_.back());
        open_.pop_back();
        add(std::move(done.node), done.anchor);
    }

    void add(YamlNode node, YAML::anchor_t anchor) {
        count(1, node.offset);
        if (anchor != YAML::NullAnchor) {
            count(sizeOf(node), node.offset);
            anchored_[anchor] = node;
        }
        if (open_.empty())
            reading_.root = std::move(node);
        else if (open_.back().node.kind == Kind::list)
            open_.back().node.items.push_back(std::move(node));
        else
            addToMap(open_.back(), std::move(node));
    }

    void addToMap(Collection& map, YamlNode node) {
        if (!map.key) {
            map.key = std::move(node);
            return;
        }
        YamlEntry entry{std::move(*map.key), std::move(node)};
        map.key.reset();
        const YamlNode& key = entry.key;
        if (key.kind != Kind::text)
            reading_.mistakes.push_back({key.offset, "une clé doit être un mot."});
        else if (!map.keys.insert(key.text).second)
            reading_.mistakes.push_back(
                {key.offset, fmt::format("« {} » figure déjà plus haut.", key.text)});
        else
            map.node.entries.push_back(std::move(entry));
    }

    std::string_view text_;
    YamlReading& reading_;
    std::vector<Collection> open_;
    std::map<YAML::anchor_t, YamlNode> anchored_;
    std::size_t count_ = 0;
    int documents_ = 0;
};

/// What the parser's complaints, by their beginnings, mean in French.
constexpr std::array<std::pair<std::string_view, std::string_view>, 13> complaints{
    {{"end of map flow not found", "une accolade n'est pas refermée, ou une virgule manque."},
     {"end of sequence flow not found", "un crochet n'est pas refermé, ou une virgule manque."},
     {"end of map not found", "l'indentation ne va pas avec ce qui précède."},
     {"end of sequence not found", "l'indentation ne va pas avec ce qui précède."},
     {"illegal EOF in scalar", leftOpen},
     {"illegal document indicator", leftOpen},
     {"illegal map value", "« : » n'a pas sa place ici : voyez l'indentation et les guillemets."},
     {"illegal block entry", "« - » n'a pas sa place ici : voyez l'indentation."},
     {"illegal tab", "une tabulation ne peut indenter."},
     {"illegal flow end", "rien n'a été ouvert qui se referme ici."},
     {"unknown escape character", "cette suite après « \\ » est inconnue."},
     {"the referenced anchor is not defined", "ce renvoi ne mène à rien."},
     {"bad file", "il y a trop de niveaux."}}};

std::string_view french(std::string_view complaint) {
    const auto found = std::ranges::find_if(
        complaints, [complaint](const auto& each) { return complaint.starts_with(each.first); });
    return found == complaints.end() ? "ce n'est pas du YAML." : found->second;
}

}  // namespace

YamlReading readYaml(std::string_view text) {
    YamlReading reading;
    TreeBuilder builder(text, reading);
    std::istringstream stream{std::string(text)};
    try {
        YAML::Parser parser(stream);
        while (parser.HandleNextDocument(builder)) {
        }
    } catch (const Enough&) {  // what was wrong is among the mistakes
    } catch (const YAML::Exception& error) {
        builder.complain(error.mark, std::string(french(error.msg)));
    }
    return reading;
}

}  // namespace tidewright::scenario
