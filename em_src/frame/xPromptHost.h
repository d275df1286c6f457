#ifndef TOLVAD_FRAME_XPROMPTHOST_H
#define TOLVAD_FRAME_XPROMPTHOST_H

#include <QPoint>
#include <QRect>

#include <memory>
#include <string>
#include <vector>

class QWidget;

// What a window and each of its cards keep for the prompt panel and the
// keyboard: prompt regions with their texts, in the order they were added,
// the one under the mouse, and the keyboard order of views. The prompt lists
// exist only when the window has a panel.
class xPromptHost {
public:
    // owner names the class in the warning about a window without help.
    explicit xPromptHost(const char* owner) : owner(owner) {}
    virtual ~xPromptHost();

    // Without prompt lists both warn.
    void AddPromptItem(const QRect& region, const std::string& text);
    // Removes the first region that holds the point, with its text.
    void RemovePromptItem(const QPoint& point);
    // The first region with this text moves to a new place, keeping its turn
    // among the regions (a view that moves, such as a dragged icon); false
    // when no region has the text.
    bool MovePromptItem(const std::string& text, const QRect& region);

    void AddNavigableView(QWidget* view);
    void RemoveNavigableView(QWidget* view);
    // The view after this one, the first after the last; null for a null
    // view, no list, or a view not in it.
    QWidget* NextNavigableView(QWidget* view) const;
    // The view gets the focus unless it has it.
    void SetFocusTo(QWidget* view);

    // The prompt texts, in order; empty without prompt lists.
    std::vector<std::string> PromptTexts() const;

protected:
    void MakePromptLists();
    bool HasPromptLists() const { return prompts != nullptr; }
    // The mouse is at point: true when that gives another region than before
    // (the first that holds it, edges inside), with its text, or null when
    // the mouse left all regions.
    bool PromptMoved(const QPoint& point, const char*& text);

private:
    struct Prompts {
        std::vector<QRect> regions;
        std::vector<std::string> texts;
        int current = -1;
    };
    Prompts* Lists() const;

    const char* owner;
    std::unique_ptr<Prompts> prompts;
    std::unique_ptr<std::vector<QWidget*>> navigableViews;
};

#endif
