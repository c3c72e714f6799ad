#include "help_page.h"

#include "text_table.h"

namespace tools {
namespace {

using Options = std::vector<const CLI::Option*>;

struct Description {
    std::string strBrief, strRest;
};

Description DescriptionOf(const CLI::App& tApp) {
    const std::string str = tApp.get_description();
    const std::size_t nEnd = str.find('\n');
    return nEnd == str.npos ? Description{str, ""} : Description{str.substr(0, nEnd), str.substr(nEnd + 1)};
}

std::string Paragraph(const std::string& str, std::size_t nIndent) {
    return std::string(nIndent, ' ') + Wrapped(str, nIndent) + "\n";
}

std::string Section(const char* szTitle, const std::string& strContent) {
    return strContent.empty() ? "" : std::string(szTitle) + "\n" + strContent + "\n";
}

std::string Term(const std::string& strTerm, const std::string& strMeaning) {
    return "  " + strTerm + "\n" + Paragraph(strMeaning, 6);
}

// "--blur PX"
std::string Typed(const CLI::Option& t) {
    const std::string strName = t.get_positional() ? t.get_name(true) : t.get_name(false, true);
    return t.get_type_name().empty() ? strName : strName + " " + t.get_type_name();
}

std::string Meaning(const CLI::Option& t) {
    const std::string strDefault = t.get_default_str();
    return t.get_description() + "." + (t.get_required() ? " Required." : "") +
           (strDefault.empty() ? "" : " Default: " + strDefault + ".");
}

std::string Terms(const Options& ap) {
    std::string str;
    for (const CLI::Option* const p : ap)
        str += Term(Typed(*p), Meaning(*p));
    return str;
}

std::string Commands(const CLI::App& tApp) {
    std::string str;
    for (const CLI::App* const p : tApp.get_subcommands({}))
        str += Term(p->get_name(), DescriptionOf(*p).strBrief);
    return str;
}

bool IsRequired(const CLI::Option* p) {
    return p->get_required();
}

bool IsPositional(const CLI::Option* p) {
    return p->get_positional();
}

bool IsNamed(const CLI::Option* p) {
    return p->nonpositional();
}

std::string Synopsis(const CLI::App& tApp, const std::string& strName) {
    std::string str = strName;
    for (const CLI::Option* const p : tApp.get_options(IsRequired))
        str += " " + Typed(*p);
    return str + (tApp.get_subcommands({}).empty() ? " [OPTIONS]" : " [OPTIONS] COMMAND");
}

} // namespace

std::string HelpPage::make_help(const CLI::App* pApp, std::string strName, CLI::AppFormatMode) const {
    const Description t = DescriptionOf(*pApp);
    return Section("NAME", Paragraph(strName + " - " + t.strBrief, 2)) +
           Section("SYNOPSIS", Paragraph(Synopsis(*pApp, strName), 2)) +
           Section("DESCRIPTION", t.strRest.empty() ? "" : Paragraph(t.strRest, 2)) +
           Section("COMMANDS", Commands(*pApp)) +
           Section("ARGUMENTS", Terms(pApp->get_options(IsPositional))) +
           Section("OPTIONS", Terms(pApp->get_options(IsNamed))) + pApp->get_footer();
}

} // namespace tools
