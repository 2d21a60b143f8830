#include "scenario/YamlTree.h"

#include <gmock/gmock.h>

namespace tidewright::scenario {
namespace {

using testing::HasSubstr;
using Kind = YamlNode::Kind;

/// The only mistake in `text`.
Mistake mistakeIn(std::string_view text) {
    const auto reading = readYaml(text);
    EXPECT_EQ(reading.mistakes.size(), 1U) << text;
    return reading.mistakes.empty() ? Mistake{} : reading.mistakes.front();
}

TEST(YamlTreeTest, holdsTextsListsAndMapsWithTheirPlaces) {
    const auto reading = readYaml("é: [b, 'c']\nd: {e: 1}\nf:\n");
    ASSERT_TRUE(reading.root);
    EXPECT_TRUE(reading.mistakes.empty());
    const auto& entries = reading.root->entries;
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].key.text, "é");
    ASSERT_EQ(entries[0].value.items.size(), 2U);
    EXPECT_EQ(entries[0].value.items[1].text, "c");
    EXPECT_EQ(entries[0].value.items[1].offset, 8U);
    EXPECT_EQ(entries[1].value.entries.at(0).value.text, "1");
    EXPECT_EQ(entries[2].value.kind, Kind::null);
    EXPECT_EQ(entries[2].valueOffset(), entries[2].key.offset);
}

TEST(YamlTreeTest, keepsTheFirstOfAKeyThatComesTwice) {
    const auto reading = readYaml("a: 1\na: 2\n");
    ASSERT_EQ(reading.mistakes.size(), 1U);
    EXPECT_EQ(reading.mistakes[0], (Mistake{5, "« a » figure déjà plus haut."}));
    ASSERT_EQ(reading.root->entries.size(), 1U);
    EXPECT_EQ(reading.root->entries[0].value.text, "1");
}

TEST(YamlTreeTest, takesOnlyWordsAsKeys) {
    EXPECT_EQ(mistakeIn("? [a]\n: b\n"), (Mistake{2, "une clé doit être un mot."}));
    EXPECT_EQ(mistakeIn("{: b}").text, "une clé doit être un mot.");
}

TEST(YamlTreeTest, copiesWhatAnAliasStandsFor) {
    const auto reading = readYaml("a: &x {b: 1}\nc: *x\n");
    ASSERT_TRUE(reading.root && reading.mistakes.empty());
    EXPECT_EQ(reading.root->entries.at(1).value.entries.at(0).value.text, "1");
}

TEST(YamlTreeTest, refusesAliasesThatLeadNowhereOrToThemselves) {
    EXPECT_EQ(mistakeIn("a: *x\n"), (Mistake{3, "ce renvoi ne mène à rien."}));
    EXPECT_EQ(mistakeIn("a: &x [*x]\n"), (Mistake{7, "ce renvoi mène à ce qui le contient."}));
}

TEST(YamlTreeTest, standsUpToAliasesThatMultiply) {
    std::string text = "a: &a [x, x, x, x, x, x, x, x, x, x]\n";
    for (char each = 'b'; each < 'z'; ++each) {
        const std::string name(1, each);
        const std::string copy(1, static_cast<char>(each - 1));
        text.append(name).append(": &").append(name).append(" [");
        for (int i = 0; i < 10; ++i) text.append("*").append(copy).append(", ");
        text.append("]\n");
    }
    EXPECT_THAT(mistakeIn(text).text, HasSubstr("plus de 500000 valeurs"));
}

TEST(YamlTreeTest, standsUpToDepth) {
    for (const char* each : {"[", "{a: ", "- ", "? "}) {
        std::string text;
        while (text.size() < 1'000'000) text += each;
        EXPECT_EQ(mistakeIn(text).text, "il y a trop de niveaux.") << each;
    }
}

TEST(YamlTreeTest, takesOneDocument) {
    EXPECT_EQ(mistakeIn("---\na: b\n---\nc: d\n"),
              (Mistake{9, "ce fichier ne peut tenir qu'un document."}));
    EXPECT_TRUE(readYaml("%YAML 1.2\n---\na: b\n...\n").mistakes.empty());
    EXPECT_FALSE(readYaml("# rien\n").root);
}

TEST(YamlTreeTest, takesOnlyTheUsualTags) {
    EXPECT_TRUE(readYaml("a: !!str 1\n").mistakes.empty());
    EXPECT_EQ(mistakeIn("a: !boat {b: 1}\n"), (Mistake{3, "l'étiquette « !boat » est inconnue."}));
}

TEST(YamlTreeTest, saysInFrenchWhatIsNoYaml) {
    EXPECT_EQ(mistakeIn("a: b: c\n"),
              (Mistake{4, "« : » n'a pas sa place ici : voyez l'indentation et les guillemets."}));
    EXPECT_EQ(mistakeIn("a: [b\n").text, "un crochet n'est pas refermé, ou une virgule manque.");
    EXPECT_EQ(mistakeIn("a: {b: c\n").text,
              "une accolade n'est pas refermée, ou une virgule manque.");
    EXPECT_EQ(mistakeIn("a: \"b\n").text, "un guillemet n'est pas refermé.");
    EXPECT_EQ(mistakeIn("a: b\n]\n").text, "rien n'a été ouvert qui se referme ici.");
    EXPECT_EQ(mistakeIn("a: \"\\q\"\n").text, "cette suite après « \\ » est inconnue.");
    EXPECT_EQ(mistakeIn("a: @b\n").text, "ce n'est pas du YAML.");
}

TEST(YamlTreeTest, missesNoQuotationMarkThatIsLeftOpen) {
    for (const char* each : {"a: \"b\nc: d\n", "a: 'b\nc: d\n", "a: &x \"b\\\"\n", "a: 'b''\n\n"})
        EXPECT_THAT(mistakeIn(each).text, HasSubstr("un guillemet n'est pas refermé.")) << each;
    for (const char* each :
         {"a: \"b\n c\"\n", "a: 'b''c'\n", "a: &x'y 'b'", "a: \"\\\"\"", "a: b'\n"})
        EXPECT_TRUE(readYaml(each).mistakes.empty()) << each;
}

}  // namespace
}  // namespace tidewright::scenario
