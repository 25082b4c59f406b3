#include "hosting/ScoreEngine.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "host/LateBoundScoringEngine.h"

namespace zav {
namespace {

DataIORef Load(const std::string& xml) {
  auto document = std::make_shared<DataIO>();
  document->LoadXml(xml);
  return document;
}

std::string State(const std::string& responses, const std::string& answers) {
  return "<State><Responses>" + responses + "</Responses><ItemStemScroll>True</ItemStemScroll>" +
         "<Answers>" + answers + "</Answers></State>";
}

// An engine with a document, and what it told the log.
struct Scoring {
  explicit Scoring(const std::string& xml) { engine.SetDocument(Load(xml)); }

  std::vector<std::string> log;
  ScoreEngine engine{[this](const std::string& message) { log.push_back(message); }};
};

TEST(ScoreEngine, AddsTheWeightsOfTheAnswersThatHold) {
  const std::string weighted =
      R"(<Answer Weight="2">A3 AND B1</Answer><Key Weight="0.5">C2</Key><k Weight="-1">NOT B1</k>)";
  const std::string ab = "<Response>A3</Response><Response>B1</Response>";
  const struct {
    const char* why;
    std::string xml;
    double want;
  } rows[] = {
      {"one of three holds", State(ab, weighted), 2},
      {"fractions and negative weights", State("<Response>C2</Response>", weighted), -0.5},
      {"all children count, whatever their name", State(ab + "<Response>C2</Response>", weighted),
       2.5},
      {"no weight counts 1", State(ab, "<Answer>A3</Answer><Answer>B1</Answer>"), 2},
      {"an empty weight is none", State(ab, R"(<Answer Weight=" ">A3</Answer>)"), 1},
      {"no response", State("", "<Answer>A3</Answer>"), 0},
      {"no response, but NOT", State("", "<Answer>NOT A3</Answer>"), 1},
      {"a response given twice", State(ab + ab, "<Answer>A3 AND B1 AND ONLY</Answer>"), 1},
      {"no answers", State(ab, ""), 0},
      {"neither answers nor responses", "<State/>", 0},
      {"key alone", "<Answers><Answer>NOT A3</Answer></Answers>", 1},
      {"whole item, key before state",
       "<DragAndDropItem><Answers><Answer>A3</Answer></Answers><WorkArea><Responses>"
       "<Response>C2</Response></Responses></WorkArea><State><Responses>" +
           ab + "</Responses></State></DragAndDropItem>",
       1},
  };
  for (const auto& row : rows) {
    Scoring scoring(row.xml);
    EXPECT_EQ(ToDouble(scoring.engine.CalculateScore()), row.want) << row.why;
    EXPECT_TRUE(scoring.log.empty()) << row.why;
  }
}

TEST(ScoreEngine, SumsPositiveAndNegativeWeightsForMaximumAndMinimum) {
  Scoring scoring(R"(<Answers><a Weight="2">A1</a><a Weight="-0.5">B1</a><a>C1</a>)"
                  R"(<a Weight="-1">no key</a><a Weight="0">D1</a></Answers>)");
  EXPECT_EQ(ToDouble(scoring.engine.MaxScore()), 3.0);
  EXPECT_EQ(ToDouble(scoring.engine.MinScore()), -1.5);
}

TEST(ScoreEngine, LogsAKeyThatIsNotWellFormedAndScoresTheOthers) {
  Scoring scoring(State("<Response>A1</Response>", "<a>A1</a><a>A1 AND</a><a/><a>A1</a>"));
  EXPECT_EQ(ToDouble(scoring.engine.CalculateScore()), 2.0);
  EXPECT_EQ(scoring.log,
            (std::vector<std::string>{"The key \"A1 AND\" of answer 2 is not well formed: "
                                      "AND or OR is expected at \" AND\", character 3",
                                      "The key \"\" of answer 3 is not well formed: "
                                      "a term or \"(\" is expected at the end, character 1"}));
}

TEST(ScoreEngine, RaisesAnErrorForAWeightThatIsNoNumber) {
  Scoring scoring(State("", R"(<a>A1</a><a Weight="two">A1</a>)"));
  for (auto score :
       {&ScoreEngine::CalculateScore, &ScoreEngine::MaxScore, &ScoreEngine::MinScore}) {
    scoring.log.clear();
    try {
      (scoring.engine.*score)();
      ADD_FAILURE() << "no error";
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Number(), 13);
      EXPECT_EQ(error.Description(), "The weight \"two\" of answer 2 is no number");
    }
    EXPECT_EQ(scoring.log.size(), 1U);
  }
}

TEST(ScoreEngine, GivesTheDocumentItsCursorBack) {
  Scoring scoring(State("<Response>A1</Response>", "<a>A1</a>"));
  const DataIORef document = scoring.engine.Document();
  document->FindNode("ItemStemScroll");
  document->SetFromRoot(false);
  scoring.engine.CalculateScore();
  scoring.engine.MaxScore();
  EXPECT_EQ(ToText(document->GetText()), "True");
  EXPECT_FALSE(document->GetFromRoot());
}

// The number of the error that an action raises, or 0.
template <typename Action>
std::int32_t ErrorOf(Action action) {
  try {
    action();
  } catch (const AutomationError& error) {
    return error.Number();
  }
  return 0;
}

TEST(ScoreEngine, IsFoundByItsProgIdAndDrivenByName) {
  ClassRegistry registry;
  RegisterScoreEngine(registry);
  const ObjectRef engine = registry.Create("ZavScoring.ScoreEngine");
  EXPECT_EQ(ToObject(engine->Call("Document")), nullptr);
  Variant score;
  EXPECT_EQ(ErrorOf([&] { engine->Invoke("CalculateScore", {&score, 1}); }), 91) << "no document";
  EXPECT_EQ(ErrorOf([&] { engine->Put("Document", engine); }), 13) << "not a DataIO";
  EXPECT_EQ(ErrorOf([&] { engine->Call("Unused"); }), 438);

  const DataIORef document = Load(State("<Response>A1</Response>", R"(<a Weight="3">A1</a>)"));
  engine->Put("document", ObjectRef(document));
  EXPECT_EQ(ToObject(engine->Call("Document")), document);
  engine->Invoke("CalculateScore", {&score, 1});
  EXPECT_EQ(std::get<double>(score), 3.0);
  EXPECT_NE(registry.Create("ZavScoring.ScoreEngine"), engine) << "one for each component";
  EXPECT_EQ(std::dynamic_pointer_cast<Object>(AsScoringEngine(engine)), engine) << "not wrapped";
}

// An engine as a host may bring one: no more than members by name.
class HostEngine : public Object {
 public:
  Variant Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind kind) override {
    if (name == "Document" && kind == InvokeKind::Put) document = ToObject(arguments[0]);
    if (name == "Document") return document;
    if (name == "CalculateScore") {
      Variant xmlLength = static_cast<std::int16_t>(ToText(document->Call("GetXml")).size());
      arguments[0] = xmlLength;
    }
    if (name == "MaxScore") arguments[0] = std::string("2.5");
    if (name == "MinScore") throw AutomationError(1000, "cannot say");
    return {};
  }

  ObjectRef document;
};

TEST(LateBoundScoringEngine, DrivesAHostsEngineByName) {
  const auto host = std::make_shared<HostEngine>();
  const ScoringEngineRef engine = AsScoringEngine(host);
  EXPECT_EQ(engine->Document(), nullptr) << "nothing yet";
  host->document = std::make_shared<HostEngine>();
  EXPECT_EQ(engine->Document(), nullptr) << "a document of a class of its own counts as none";
  const DataIORef document = Load("<a/>");
  engine->SetDocument(document);
  EXPECT_EQ(engine->Document(), document);
  EXPECT_EQ(ToInt32(engine->CalculateScore()), 4) << "the engine reads the document by name";
  EXPECT_EQ(ToDouble(engine->MaxScore()), 2.5);
  EXPECT_EQ(ErrorOf([&] { engine->MinScore(); }), 1000);
  EXPECT_EQ(ErrorOf([] { AsScoringEngine(nullptr); }), 91);
}

}  // namespace
}  // namespace zav
