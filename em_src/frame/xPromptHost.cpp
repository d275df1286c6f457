#include "frame/xPromptHost.h"

#include "gui/xPlatform.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

xPromptHost::~xPromptHost() = default;

void xPromptHost::MakePromptLists()
{
    if (!prompts)
        prompts = std::make_unique<Prompts>();
}

xPromptHost::Prompts* xPromptHost::Lists() const
{
    if (!prompts)
        PostWarning("%s::AddPromptItem() >> current window does not support help!", owner);
    return prompts.get();
}

void xPromptHost::AddPromptItem(const QRect& region, const std::string& text)
{
    if (Prompts* lists = Lists()) {
        lists->regions.push_back(region);
        lists->texts.push_back(text);
    }
}

void xPromptHost::RemovePromptItem(const QPoint& point)
{
    Prompts* lists = Lists();
    if (!lists)
        return;
    for (size_t i = 0; i < lists->regions.size(); ++i) {
        if (!lists->regions[i].contains(point))
            continue;
        lists->regions.erase(lists->regions.begin() + static_cast<long>(i));
        lists->texts.erase(lists->texts.begin() + static_cast<long>(i));
        int at = static_cast<int>(i);
        if (lists->current == at)
            lists->current = -1;
        else if (lists->current > at)
            --lists->current;
        return;
    }
}

bool xPromptHost::MovePromptItem(const std::string& text, const QRect& region)
{
    if (!prompts)
        return false;
    for (size_t i = 0; i < prompts->texts.size(); ++i) {
        if (prompts->texts[i] == text) {
            prompts->regions[i] = region;
            return true;
        }
    }
    return false;
}

bool xPromptHost::PromptMoved(const QPoint& point, const char*& text)
{
    if (!prompts)
        return false;
    int found = -1;
    for (size_t i = 0; i < prompts->regions.size() && found < 0; ++i)
        if (prompts->regions[i].contains(point))
            found = static_cast<int>(i);
    if (found == prompts->current)
        return false;
    prompts->current = found;
    text = found < 0 ? nullptr : prompts->texts[static_cast<size_t>(found)].c_str();
    return true;
}

std::vector<std::string> xPromptHost::PromptTexts() const
{
    return prompts ? prompts->texts : std::vector<std::string>();
}

void xPromptHost::AddNavigableView(QWidget* view)
{
    if (!navigableViews)
        navigableViews = std::make_unique<std::vector<QWidget*>>();
    navigableViews->push_back(view);
}

void xPromptHost::RemoveNavigableView(QWidget* view)
{
    if (navigableViews)
        navigableViews->erase(std::remove(navigableViews->begin(), navigableViews->end(), view),
                              navigableViews->end());
}

QWidget* xPromptHost::NextNavigableView(QWidget* view) const
{
    if (!view || !navigableViews)
        return nullptr;
    auto found = std::find(navigableViews->begin(), navigableViews->end(), view);
    if (found == navigableViews->end())
        return nullptr;
    ++found;
    return found == navigableViews->end() ? navigableViews->front() : *found;
}

void xPromptHost::SetFocusTo(QWidget* view)
{
    if (view && QApplication::focusWidget() != view)
        view->setFocus(Qt::OtherFocusReason);
}
