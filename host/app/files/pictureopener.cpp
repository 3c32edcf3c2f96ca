// SPDX-License-Identifier: MIT
#include "host/app/files/pictureopener.h"

// GLib uses Qt's keyword as a name.
#pragma push_macro("signals")
#undef signals
#include <gio/gdesktopappinfo.h>
#pragma pop_macro("signals")

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>
#include <vector>

namespace {

struct Unreference
{
    void operator()(GAppInfo* program) const { g_object_unref(program); }
};
using Program = std::unique_ptr<GAppInfo, Unreference>;

bool isBrowser(GAppInfo* program)
{
    const char* const categories = g_desktop_app_info_get_categories(G_DESKTOP_APP_INFO(program));
    if (categories && QByteArray(categories).split(';').contains("WebBrowser"))
        return true;
    const char** const types = g_app_info_get_supported_types(program);
    for (int i = 0; types && types[i]; ++i) {
        if (qstrcmp(types[i], "x-scheme-handler/http") == 0)
            return true;
    }
    return false;
}

// The best first.
std::vector<Program> programsFor(const QByteArray& mimeType)
{
    std::vector<Program> programs;
    if (GAppInfo* const chosen = g_app_info_get_default_for_type(mimeType.constData(), FALSE))
        programs.emplace_back(chosen);
    GList* const all = g_app_info_get_all_for_type(mimeType.constData());
    for (const GList* entry = all; entry; entry = entry->next)
        programs.emplace_back(static_cast<GAppInfo*>(entry->data));
    g_list_free(all);
    return programs;
}

Program bestProgram(const QString& mimeType)
{
    Program browser;
    for (Program& program : programsFor(mimeType.toUtf8())) {
        if (!isBrowser(program.get()))
            return std::move(program);
        if (!browser)
            browser = std::move(program);
    }
    return mimeType.startsWith(QLatin1String("image/svg")) ? Program() : std::move(browser);
}

}  // namespace

QByteArray PictureOpener::programFor(const QString& mimeType)
{
    const Program program = bestProgram(mimeType);
    return program ? QByteArray(g_app_info_get_id(program.get())) : QByteArray();
}

bool PictureOpener::open(const QByteArray& path, const QString& mimeType)
{
    const Program program = bestProgram(mimeType);
    if (!program)
        return false;
    GFile* const file = g_file_new_for_path(path.constData());
    GList files = {file, nullptr, nullptr};
    const bool started = g_app_info_launch(program.get(), &files, nullptr, nullptr) != FALSE;
    g_object_unref(file);
    return started;
}
