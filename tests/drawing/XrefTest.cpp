#include "tests/drawing/Drawings.h"

#include "platform/drawing/ExternalReferences.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/text/Unicode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

using namespace drawings;
using namespace tv::dwg;
namespace fs = std::filesystem;

namespace {

// A folder of the test's own that goes with it.
class Folder {
  public:
    Folder() : m_path(fs::path(testing::TempDir()) / ("kx_xref_" + std::to_string(::getpid()))) {
        fs::remove_all(m_path);
        fs::create_directories(m_path);
    }
    ~Folder() { fs::remove_all(m_path); }
    fs::path write(const fs::path& name, const std::string& bytes) const {
        fs::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name, std::ios::binary) << bytes;
        return m_path / name;
    }
    const fs::path& path() const { return m_path; }

  private:
    fs::path m_path;
};

// A drawing that refers to the others, each "name", "path" and flags.
struct Reference {
    std::string name, path;
    int flags = 4;
};
std::string referring(const std::vector<Reference>& references) {
    std::string out = "0|SECTION|2|HEADER|9|$ACADVER|1|AC1009|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|9|"
                      "0|LAYER|2|0|70|0|62|7|6|CONTINUOUS|0|LAYER|2|Walls|70|0|62|1|6|CONTINUOUS|";
    for (const Reference& one : references)
        out += "0|LAYER|2|" + one.name + "&Walls|70|48|62|1|6|CONTINUOUS|";
    out += "0|ENDTAB|0|ENDSEC|0|SECTION|2|BLOCKS|";
    for (const Reference& one : references)
        out += "0|BLOCK|8|0|2|" + one.name + "|70|" + std::to_string(one.flags) + "|10|0.0|20|0.0|30|0.0|3|" +
               one.name + "|1|" + one.path + "|0|ENDBLK|8|0|";
    std::string bytes = lines(out + "0|ENDSEC|0|SECTION|2|ENTITIES|0|LINE|8|0|10|0.0|20|0.0|11|1.0|21|1.0|"
                                    "0|ENDSEC|0|EOF");
    for (char& c : bytes)
        if (c == '&') c = '|';
    return bytes;
}

OdDbObjectId blockOf(OdDbDatabase& db, std::wstring_view name) {
    return db.getBlockTableId().open<OdDbBlockTable>()->getAt(name);
}

OdDbDatabasePtr openFile(const fs::path& file) { return OdDbDatabase::open(file).database; }

} // namespace

TEST(Xref, RenamingAReferenceRenamesWhatCameWithIt) {
    const auto db = openText(referring({{"old", "old.dxf"}, {"older", "older.dxf"}}));
    const std::string first = db->bytes();
    ASSERT_FALSE(db->setHeaderVar(L"CLAYER", HeaderValue::text(L"OLD|Walls")));
    const std::string before = db->bytes();
    const auto block = blockOf(*db, L"old").open<OdDbBlockTableRecord>(OdDb::kForWrite);
    const auto layers = db->layers();
    ASSERT_EQ(block->setName(L"new"), Tavo::eOk);
    EXPECT_TRUE(layers->has(L"new|Walls"));
    EXPECT_FALSE(layers->has(L"old|Walls"));
    EXPECT_TRUE(layers->has(L"older|Walls"));
    EXPECT_EQ(db->headerVar(L"CLAYER")->asText(), L"new|Walls");
    EXPECT_EQ(block->setName(std::wstring(28, L'x')), Tavo::eNotHandled) << "its layer's name gets too long";
    EXPECT_EQ(block->getName(), L"new");
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), before);
    layers->getAt(L"older|Walls").open<OdDbLayerTableRecord>(OdDb::kForWrite)->setName(L"new|walls");
    EXPECT_EQ(block->setName(L"new"), Tavo::eDuplicate);
    EXPECT_EQ(block->getName(), L"old");
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);
}

TEST(Xrefs, FilesAreFoundHoweverTheyAreNamed) {
    const Folder folder;
    const fs::path host = folder.write("job/host.dxf", "x");
    const fs::path plan = folder.write("Plans/Ground Floor.dxf", "x");
    const fs::path beside = folder.write("job/beside.dxf", "x");
    const fs::path library = folder.write("lib/sym/Door.DXF", "x");
    fs::create_directories(folder.path() / "job" / "folder.dxf");
    const auto find = [&](const wchar_t* path) {
        return findReferencedFile(host, path, {folder.path() / "lib"});
    };
    EXPECT_TRUE(fs::equivalent(find(L"..\\plans\\GROUND FLOOR.dwg"), plan)) << "the text form of a binary one";
    EXPECT_TRUE(fs::equivalent(find(L"../Plans/Ground Floor.dxf"), plan));
    EXPECT_TRUE(fs::equivalent(find(L"C:\\Users\\me\\beside.dxf"), beside));
    EXPECT_TRUE(fs::equivalent(find((L"/" + tv::text::fromUtf8(beside.native().substr(1))).c_str()), beside));
    EXPECT_TRUE(fs::equivalent(find(L"sym/door.dxf"), library));
    for (const wchar_t* none :
         {L"", L"..", L".", L"/", L"C:", L"\\\\", L"folder.dxf", L"nowhere.dxf", L"../job"})
        EXPECT_TRUE(find(none).empty()) << tv::text::toUtf8(none);
    EXPECT_TRUE(find(std::wstring(100000, L'/').c_str()).empty());
}

TEST(Xrefs, AreReadOnceSharedAndToldOnce) {
    const Folder folder;
    const fs::path plan = folder.write("plan.dxf", referring({}));
    folder.write("text.dxf", "just words\n");
    const auto db = openFile(folder.write("host.dxf", referring({{"plan", "PLAN.DXF"},
                                                                 {"again", "./plan.dxf", 12},
                                                                 {"gone", "gone.dxf"},
                                                                 {"text", "text.dxf"},
                                                                 {"block", "", 0}})));
    ASSERT_TRUE(db);
    ExternalReferences references(*db);
    auto list = references.list();
    ASSERT_EQ(list.size(), 4u);
    EXPECT_EQ(list[0].status, XrefStatus::kResolved);
    EXPECT_TRUE(list[1].overlay);
    EXPECT_EQ(list[2].status, XrefStatus::kMissing);
    EXPECT_EQ(references.takeProblems().size(), 1u);
    const auto loaded = references.load(list[0].block);
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(loaded->isReadOnly());
    EXPECT_EQ(references.load(list[1].block), loaded);
    EXPECT_FALSE(references.load(list[2].block));
    EXPECT_FALSE(references.load(list[3].block));
    EXPECT_FALSE(references.load(list[3].block));
    EXPECT_EQ(references.reference(list[3].block).status, XrefStatus::kNotADrawing);
    const auto problems = references.takeProblems();
    ASSERT_EQ(problems.size(), 1u) << "what was told before isn't again";
    EXPECT_NE(problems[0].sentence.find(L"text"), std::wstring::npos);
    EXPECT_FALSE(references.load(blockOf(*db, L"block")));

    const OdDbObjectId dependent = db->layers()->getAt(L"plan|Walls");
    EXPECT_EQ(references.sourceOf(dependent), loaded->layers()->getAt(L"Walls"));
    EXPECT_EQ(references.dependentOf(list[0].block, loaded->layers()->getAt(L"Walls")), dependent);
    EXPECT_EQ(references.dependentOf(list[0].block, loaded->layers()->getAt(L"0")), db->layers()->getAt(L"0"));
    EXPECT_TRUE(references.sourceOf(db->layers()->getAt(L"gone|Walls")).isNull());
    EXPECT_TRUE(references.sourceOf(db->layers()->getAt(L"Walls")).isNull());

    references.unload(list[0].block);
    EXPECT_FALSE(references.load(list[0].block));
    EXPECT_TRUE(references.takeProblems().empty());
    std::ofstream(plan, std::ios::binary) << referring({{"inner", "inner.dxf"}});
    references.reload(list[0].block);
    const auto fresh = references.load(list[0].block);
    ASSERT_TRUE(fresh);
    EXPECT_FALSE(blockOf(*fresh, L"inner").isNull());
}

TEST(Xrefs, CirclesEndAndOverlaysStayBelow) {
    const Folder folder;
    const auto db = openFile(folder.write("a.dxf", referring({{"b", "b.dxf"}, {"me", "A.DXF"}})));
    folder.write("b.dxf", referring({{"a", "a.dxf"}, {"c", "c.dxf"}, {"over", "c.dxf", 12}}));
    folder.write("c.dxf", referring({{"d", "c.dxf"}}));
    ExternalReferences references(*db);
    EXPECT_EQ(references.reference(blockOf(*db, L"me")).status, XrefStatus::kCircular);
    const auto b = references.below(blockOf(*db, L"b"));
    ASSERT_TRUE(b);
    EXPECT_EQ(b, references.below(blockOf(*db, L"b")));
    const auto inB = b->list();
    ASSERT_EQ(inB.size(), 2u) << "not the overlay";
    EXPECT_EQ(inB[0].status, XrefStatus::kCircular);
    const auto c = b->below(inB[1].block);
    ASSERT_TRUE(c);
    EXPECT_EQ(c->list().at(0).status, XrefStatus::kCircular);
    EXPECT_FALSE(c->below(c->list().at(0).block));

    // Each of a long row refers to the next.
    for (int i = 0; i < 40; ++i)
        folder.write("n" + std::to_string(i) + ".dxf",
                     referring({{"next", "n" + std::to_string(i + 1) + ".dxf"}}));
    const auto first = openFile(folder.path() / "n0.dxf");
    auto row = std::make_shared<ExternalReferences>(*first);
    int depth = 0;
    for (auto next = row; next; next = next->below(blockOf(next->drawing(), L"next")))
        ++depth;
    EXPECT_EQ(depth, 16);
    EXPECT_EQ(row->takeProblems().size(), 1u);
}

TEST(Xrefs, TheSampleHasOneOfEachKind) {
    const auto opened = OdDbDatabase::open(fs::path(KX_SOURCE_DIR) / "samples" / "xref" / "site_plan.dxf");
    ASSERT_TRUE(opened.database && opened.problems.empty());
    ExternalReferences references(*opened.database);
    std::vector<bool> loaded;
    for (const ExternalReference& one : references.list())
        loaded.push_back(references.load(one.block) != nullptr);
    EXPECT_THAT(loaded, testing::ElementsAre(true, true, false));
    const OdDbObjectId trees = references.sourceOf(opened.database->layers()->getAt(L"survey|Trees"));
    ASSERT_FALSE(trees.isNull());
    EXPECT_EQ(trees.open<OdDbLayerTableRecord>()->color().colorIndex(), 94);
}
