#include "KpsSerializerTestTools.h"

using namespace SerializerTest;

namespace {

QString key(const QString& text)
{
    return "size=<value|" + QString::fromLatin1(text.toUtf8().toBase64()) + ">";
}

QString urlKey(const QString& text)
{
    return "data=<url|" + QString::fromLatin1(text.toUtf8().toBase64()) + ">";
}

QString url(const QString& text)
{
    return "<task>\n <url>" + text + "</url>\n</task>\n";
}

class KpsSerializerUpdate : public testing::Test
{
protected:
    /// The document after the value of "size" has gone from `from` to `to`.
    QString updated(const QString& text, const QString& from = "old", const QString& to = "new")
    {
        QDomDocument document = parsed(text);
        serializer.updateXmlDocument(document, "size", value(from), value(to));
        return written(document);
    }
    QString& form(const QString& id, const QString& ficheKey) { return store->forms[{id, ficheKey}]; }
    QStringList places() const
    {
        QStringList all;
        for (const auto& stored : store->forms)
            all.append(stored.first.first + "/" + stored.first.second);
        return all;
    }

    MemoryStore* store = new MemoryStore;
    KssProject project{std::unique_ptr<KsbIDriverTaskFiche>(store)};
    KpsSerializer serializer{&project};
};

} // namespace

TEST_F(KpsSerializerUpdate, ReplacesTheValueOfTheParametersOfTheKeyAtAnyDepth)
{
    EXPECT_EQ(updated("<task><param key=\"size\">old</param><x><param key=\"g\"><param key=\"size\">old</param></param>"
                      "</x><param key=\"other\">old</param></task>"),
              "<task>\n"
              " <param key=\"size\">new</param>\n"
              " <x>\n"
              "  <param key=\"g\">\n"
              "   <param key=\"size\">new</param>\n"
              "  </param>\n"
              " </x>\n"
              " <param key=\"other\">old</param>\n"
              "</task>\n");
}

TEST_F(KpsSerializerUpdate, ReplacesEveryEqualTextBelowTheParameter)
{
    EXPECT_EQ(updated("<task><param key=\"size\"><url>old</url><a><b>old</b></a><param key=\"size\">old</param>"
                      "<param key=\"inner\">old</param><c>older</c></param><d>old</d></task>"),
              "<task>\n"
              " <param key=\"size\">\n"
              "  <url>new</url>\n"
              "  <a>\n"
              "   <b>new</b>\n"
              "  </a>\n"
              "  <param key=\"size\">new</param>\n"
              "  <param key=\"inner\">new</param>\n"
              "  <c>older</c>\n"
              " </param>\n"
              " <d>old</d>\n"
              "</task>\n");
}

TEST_F(KpsSerializerUpdate, LeavesOtherTextsAlone)
{
    for (const QString content : {"older", "Old", " old", "", "<!--old-->", "<!--x-->old", "<?x?>old", "<a/>old"}) {
        const QString text = "<task><param key=\"size\">" + content + "</param></task>";
        EXPECT_EQ(updated(text), written(parsed(text)));
    }
    for (const QString element : {"<param key=\"Size\">old</param>", "<param>old</param>", "<size>old</size>",
                                  "<Param key=\"size\">old</Param>", "<param id=\"size\">old</param>"})
    {
        const QString text = "<task>" + element + "</task>";
        EXPECT_EQ(updated(text), written(parsed(text)));
    }
}

TEST_F(KpsSerializerUpdate, ReplacesTheFirstTextOnly)
{
    EXPECT_EQ(updated("<task><param key=\"size\">old<!--x-->old<a/></param></task>"),
              "<task>\n <param key=\"size\">new<!--x-->old<a/></param>\n</task>\n");
    EXPECT_EQ(updated("<task><param key=\"size\">old<![CDATA[ more]]></param></task>"),
              "<task>\n <param key=\"size\">new<![CDATA[ more]]></param>\n</task>\n");
}

TEST_F(KpsSerializerUpdate, LeavesALongerTextAloneThatIsStoredInSections)
{
    const struct
    {
        const char* text;
        const char* from;
    } cases[] = {{"\n]]>x", "\n]]"}, {"a\nb\rc", "a\nb"}, {"a\nb\rc", "a\nb\r"}};
    for (const auto& c : cases) {
        KpcGroup group("g", noProject());
        group.addChild(new FormParameter("size", value(c.text)));
        const QString before = writtenParam(group);
        EXPECT_EQ(updated(before, c.from, "new"), before) << c.text;
    }
}

TEST_F(KpsSerializerUpdate, LeavesTheRootAlone)
{
    const QString text = "<param key=\"size\">old</param>\n";
    EXPECT_EQ(updated(text), text);
}

TEST_F(KpsSerializerUpdate, ReplacesTextsOfEachKind)
{
    const struct
    {
        const char* from;
        const char* to;
    } cases[] = {{"old", " new "}, {" old ", "new"},         {"a\nb", "c\td"}, {"old", ""},
                 {"x", "]]>"},     {"\n]]>\n]]>", "\n]]>x"}, {"]]>", "y"},     {"<a>&amp;</a>", "<b/>"}};
    for (const auto& c : cases) {
        KpcGroup group("g", noProject());
        group.addChild(new FormParameter("size", value(c.from)));
        FormParameter expected("size", value(c.to));

        const QString text = updated(writtenParam(group), c.from, c.to);

        EXPECT_EQ(text, "<param key=\"g\">\n " + writtenParam(expected) + "</param>\n") << c.from;
    }
}

TEST_F(KpsSerializerUpdate, AFormWithoutAValueStandsForTheEmptyText)
{
    QDomDocument document = parsed("<task><param key=\"size\">old</param><param key=\"size\"/></task>");
    const QString before = written(document);
    serializer.updateXmlDocument(document, "size", {{"other", "old"}}, value("new"));
    EXPECT_EQ(written(document), before);

    serializer.updateXmlDocument(document, "size", value("old"), {});
    EXPECT_EQ(written(document), "<task>\n <param key=\"size\"/>\n <param key=\"size\"/>\n</task>\n");
}

TEST_F(KpsSerializerUpdate, ANullDocumentStaysNull)
{
    QDomDocument document;
    serializer.updateXmlDocument(document, "size", value("old"), value("new"));
    EXPECT_TRUE(document.isNull());
}

TEST_F(KpsSerializerUpdate, WalksThroughDeepDocuments)
{
    const QString open = QStringLiteral("<param key=\"size\">").repeated(900);
    const QString close = QStringLiteral("</param>").repeated(900);
    const QString text = updated("<task>" + open + "old" + close + "</task>");
    EXPECT_TRUE(text.contains(">new<"));
    EXPECT_FALSE(text.contains("old"));
}

TEST_F(KpsSerializerUpdate, UpdatesAndRenamesEachFormOfATask)
{
    form("t", key("old")) = "<task>\n <param key=\"size\">old</param>\n</task>\n";
    form("t", key("third")) = "<task>\n <param key=\"size\">third</param>\n</task>\n";
    form("t", "") = "<task>\n <param key=\"size\">old</param>\n</task>\n";
    form("other", key("old")) = "<task>\n <param key=\"size\">old</param>\n</task>\n";
    QStringList expected;
    for (const QString& ficheKey : store->listKeys("t")) {
        expected << "read t/" + ficheKey << "write t/" + ficheKey;
        if (ficheKey == key("old"))
            expected << "rename t/" + ficheKey + " to " + key("new");
        if (ficheKey == key("third"))
            expected << "rename t/" + ficheKey + " to " + ficheKey;
    }

    serializer.updateFiche("t", "size", value("old"), value("new"));

    EXPECT_EQ(store->log, expected);
    EXPECT_EQ(form("t", key("new")), "<task>\n <param key=\"size\">new</param>\n</task>\n");
    EXPECT_EQ(form("t", key("third")), "<task>\n <param key=\"size\">third</param>\n</task>\n");
    EXPECT_EQ(form("t", ""), "<task>\n <param key=\"size\">new</param>\n</task>\n");
    EXPECT_EQ(form("other", key("old")), "<task>\n <param key=\"size\">old</param>\n</task>\n");
    EXPECT_EQ(store->forms.size(), 4u);
}

TEST_F(KpsSerializerUpdate, ReplacesAllOccurrencesInAFicheKey)
{
    form("t", "a=<value|MQ==>{}" + key("old") + "{}" + key("old")) = "<task/>";
    serializer.updateFiche("t", "size", value("old"), value("new"));
    EXPECT_EQ(places(), QStringList("t/a=<value|MQ==>{}" + key("new") + "{}" + key("new")));
}

TEST_F(KpsSerializerUpdate, LeavesAParameterInAFicheKeyAloneWhoseKeyEndsLikeTheOther)
{
    form("t", "my" + key("old")) = "<task/>";
    form("u", "my" + key("old") + "{}" + key("old")) = "<task/>";
    serializer.updateFiche("t", "size", value("old"), value("new"));
    serializer.updateFiche("t", "", value("old"), value("new"));
    serializer.updateFiche("u", "size", value("old"), value("new"));
    EXPECT_EQ(places(), QStringList({"t/my" + key("old"), "u/my" + key("old") + "{}" + key("new")}));
}

TEST_F(KpsSerializerUpdate, LeavesALongerValueInAFicheKeyAlone)
{
    form("t", "size=<value|b2xk><unit|bQ==>") = "<task/>";
    serializer.updateFiche("t", "size", value("old"), value("new"));
    serializer.updateFiche("t", "size", {}, value("new"));
    EXPECT_EQ(places(), QStringList("t/size=<value|b2xk><unit|bQ==>"));
}

TEST_F(KpsSerializerUpdate, ReplacesAnEmptyFormInAFicheKey)
{
    form("t", "size={}a=") = "<task/>";
    serializer.updateFiche("t", "size", {}, value("new"));
    serializer.updateFiche("t", "a", {}, value("new"));
    EXPECT_EQ(places(), QStringList("t/" + key("new") + "{}a=<value|bmV3>"));
}

TEST_F(KpsSerializerUpdate, ComparesFicheKeysCaseSensitively)
{
    const QString other = key("old").replace("size", "SIZE");
    form("t", other) = "<task/>";
    serializer.updateFiche("t", "size", value("old"), value("new"));
    EXPECT_EQ(places(), QStringList("t/" + other));
}

TEST_F(KpsSerializerUpdate, RenamesAFormThatCannotBeReadAndDoesNotWriteIt)
{
    form("t", key("old")) = QString();
    serializer.updateFiche("t", "size", value("old"), value("new"));
    EXPECT_EQ(store->log, QStringList({"read t/" + key("old"), "rename t/" + key("old") + " to " + key("new")}));
}

TEST_F(KpsSerializerUpdate, UpdatesAFormOnceThatTakesTheKeyOfAnother)
{
    const KpbAParameter::SerialForm oldForm = value("a");
    const KpbAParameter::SerialForm newForm = {{"value", "a"}, {"unit", "m"}};
    form("t", "size=<value|YQ==>") = "<first/>";
    form("t", "size=<value|YQ==><unit|bQ==>") = "<second/>";

    serializer.updateFiche("t", "size", oldForm, newForm);

    EXPECT_EQ(places(), QStringList("t/size=<value|YQ==><unit|bQ==>"));
    EXPECT_EQ(form("t", "size=<value|YQ==><unit|bQ==>"), "<first/>\n");
}

TEST_F(KpsSerializerUpdate, ATaskWithoutFormsIsLeftAlone)
{
    serializer.updateFiche("t", "size", value("old"), value("new"));
    serializer.updateUrl(QUrl("file:///a"), QUrl("file:///b"));
    EXPECT_EQ(store->log, QStringList());
}

TEST_F(KpsSerializerUpdate, MovesTheLocationsInAllForms)
{
    form("t", "1") = url("file:///old/data");
    form("t", "2") = url("file:///elsewhere");
    form("u", "") = "<task><a><url>file:///old</url></a><param key=\"P\"><url>file:///old/x/file:///old</url></param>"
                    "<URL>file:///old</URL><path>file:///old</path><url>x file:///old</url><url>FILE:///old</url>"
                    "<url/><url><!--x-->file:///old</url></task>";

    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///new/place"));

    EXPECT_EQ(store->log, QStringList({"read t/1", "write t/1", "read t/2", "read u/", "write u/"}));
    EXPECT_EQ(form("t", "1"), url("file:///new/place/data"));
    EXPECT_EQ(form("t", "2"), url("file:///elsewhere"));
    EXPECT_EQ(form("u", ""), "<task>\n"
                             " <a>\n"
                             "  <url>file:///new/place</url>\n"
                             " </a>\n"
                             " <param key=\"P\">\n"
                             "  <url>file:///new/place/x/file:///old</url>\n"
                             " </param>\n"
                             " <URL>file:///old</URL>\n"
                             " <path>file:///old</path>\n"
                             " <url>x file:///old</url>\n"
                             " <url>FILE:///old</url>\n"
                             " <url/>\n"
                             " <url><!--x-->file:///old</url>\n"
                             "</task>\n");
}

TEST_F(KpsSerializerUpdate, LeavesARootNamedUrlAlone)
{
    form("t", "1") = "<url>file:///old</url>\n";
    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///new"));
    EXPECT_EQ(form("t", "1"), "<url>file:///old</url>\n");
}

TEST_F(KpsSerializerUpdate, ComparesFullyEncodedLocations)
{
    form("t", "1") = url("file:///old%20%C3%A9/data");
    serializer.updateUrl(QUrl(QString::fromUtf8("file:///old é")), QUrl(QString::fromUtf8("file:///new ö")));
    EXPECT_EQ(form("t", "1"), url("file:///new%20%C3%B6/data"));
}

TEST_F(KpsSerializerUpdate, MovesALocationInACDataSection)
{
    form("t", "1") = "<task><url><![CDATA[file:///old/data]]></url></task>";
    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///new"));
    EXPECT_EQ(form("t", "1"), url("file:///new/data"));
}

TEST_F(KpsSerializerUpdate, RenamesFormsThatAreFiledUnderALocationOfTheirs)
{
    form("t", urlKey("file:///old/a")) = url("file:///old/a");
    form("t", urlKey("file:///old/b")) = url("file:///old/c");
    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///new/place"));
    EXPECT_EQ(form("t", urlKey("file:///new/place/a")), url("file:///new/place/a"));
    EXPECT_EQ(form("t", urlKey("file:///old/b")), url("file:///new/place/c"));
    EXPECT_EQ(store->forms.size(), 2u);
}

TEST_F(KpsSerializerUpdate, RenamesAFormForAllLocationsInItsKey)
{
    const QString content = "<task>\n <url>file:///old/b</url>\n <url>file:///old/a</url>\n</task>\n";
    form("t", urlKey("file:///old/b") + "{}" + urlKey("file:///old/a") + "{}" + urlKey("file:///old/b")) = content;
    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///new"));
    EXPECT_EQ(places(), QStringList("t/" + urlKey("file:///new/b") + "{}" + urlKey("file:///new/a") + "{}" +
                                    urlKey("file:///new/b")));
}

TEST_F(KpsSerializerUpdate, RenamesAFormForOneLocationAfterTheOtherInOrderOfTheirTexts)
{
    const QString ficheKey = urlKey("file:///old/b") + "{}" + urlKey("file:///old/a");
    const QString halfWay = urlKey("file:///old/b") + "{}" + urlKey("file:///new/a");
    const QString newKey = urlKey("file:///new/b") + "{}" + urlKey("file:///new/a");
    form("t", ficheKey) = "<task><url>file:///old/b</url><url>file:///old/a</url></task>";

    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///new"));

    EXPECT_EQ(store->log,
              QStringList({"read t/" + ficheKey, "write t/" + ficheKey, "rename t/" + ficheKey + " to " + halfWay,
                           "rename t/" + halfWay + " to " + newKey}));
}

TEST_F(KpsSerializerUpdate, TakesNoOtherFormsPlaceOnTheWay)
{
    const QString halfWay = urlKey("file:///old/b") + "{}" + urlKey("file:///new/a");
    form("t", urlKey("file:///old/b") + "{}" + urlKey("file:///old/a")) =
        "<task><url>file:///old/b</url><url>file:///old/a</url></task>";
    form("t", halfWay) = "<other/>";

    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///new"));

    EXPECT_THAT(places(), testing::UnorderedElementsAre("t/" + halfWay, "t/" + urlKey("file:///new/b") + "{}" +
                                                                            urlKey("file:///new/a")));
    EXPECT_EQ(form("t", halfWay), "<other/>");
}

TEST_F(KpsSerializerUpdate, FindsALocationInAKeyWhateverElseIsInIt)
{
    // The second has a padded code, the third half of a surrogate pair.
    const QStringList urls = {"file:///old/a", "file:///old/ab", "file:///old/abc"};
    const QStringList before = {"", "x=", QString(QChar(0xd800)) + "|"};
    for (int i = 0; i < urls.size(); ++i)
        form("t", before[i] + QString::fromLatin1(urls[i].toUtf8().toBase64()) + "}") = url(urls[i]);

    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///new"));

    EXPECT_THAT(places(), testing::UnorderedElementsAre("t/ZmlsZTovLy9uZXcvYQ==}", "t/x=ZmlsZTovLy9uZXcvYWI=}",
                                                        "t/" + before[2] + "ZmlsZTovLy9uZXcvYWJj}"));
}

TEST_F(KpsSerializerUpdate, TellsALocationInAKeyFromALongerOne)
{
    // The code of the first text is the beginning of the second one's.
    form("t", urlKey("file:///oldx")) = url("file:///oldx");
    form("t", urlKey("file:///oldxyz")) = "<task><url>file:///oldx</url><url>file:///oldxyz</url></task>";
    serializer.updateUrl(QUrl("file:///oldx"), QUrl("file:///new/x"));
    EXPECT_THAT(places(),
                testing::UnorderedElementsAre("t/" + urlKey("file:///new/x"), "t/" + urlKey("file:///new/xyz")));
}

TEST_F(KpsSerializerUpdate, MovesALocationOnceWhereItMovesBelowItself)
{
    const QString content = "<task><url>file:///a</url><url>file:///a/b</url></task>";
    form("t", urlKey("file:///a")) = content;
    form("u", urlKey("file:///a/b")) = content;
    serializer.updateUrl(QUrl("file:///a"), QUrl("file:///a/b"));
    EXPECT_EQ(places(), QStringList({"t/" + urlKey("file:///a/b"), "u/" + urlKey("file:///a/b/b")}));
    EXPECT_EQ(form("t", urlKey("file:///a/b")),
              "<task>\n <url>file:///a/b</url>\n <url>file:///a/b/b</url>\n</task>\n");
}

TEST_F(KpsSerializerUpdate, MovesAFormOnceThatTakesTheKeyOfAnother)
{
    // The first takes the key of the second, which is still to come.
    form("t", urlKey("file:///a")) = url("file:///a");
    form("t", urlKey("file:///a/b")) = url("file:///a/b");
    serializer.updateUrl(QUrl("file:///a"), QUrl("file:///a/b"));
    EXPECT_EQ(form("t", urlKey("file:///a/b")), url("file:///a/b"));
}

TEST_F(KpsSerializerUpdate, PassesOverAFormThatCannotBeRead)
{
    form("t", urlKey("file:///old")) = QString();
    form("u", "") = url("file:///old");
    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///new"));
    EXPECT_EQ(store->log, QStringList({"read t/" + urlKey("file:///old"), "read u/", "write u/"}));
    EXPECT_EQ(form("u", ""), url("file:///new"));
}

TEST_F(KpsSerializerUpdate, AnEmptyLocationMovesNothing)
{
    form("t", "") = url("file:///old");
    serializer.updateUrl(QUrl(), QUrl("file:///new"));
    serializer.updateUrl(QUrl("file:///old"), QUrl());
    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///old"));
    EXPECT_EQ(form("t", ""), url("file:///old"));
    EXPECT_EQ(store->log, QStringList());
}
