#ifndef TOLVAD_GUI_XCOMMANDTARGET_H
#define TOLVAD_GUI_XCOMMANDTARGET_H

// A link of the command chain. Views, cards, windows, documents and the
// application pass numbered commands with a data pointer up to the next target
// until one of them takes it. The default passes it on; the last link drops it.
class xCommandTarget {
public:
    explicit xCommandTarget(xCommandTarget* next = nullptr) : nextTarget(next) {}
    virtual ~xCommandTarget() = default;

    virtual void DoCommand(long command, void* data);

    xCommandTarget* NextTarget() const { return nextTarget; }
    void SetNextTarget(xCommandTarget* next) { nextTarget = next; }

private:
    xCommandTarget* nextTarget;
};

#endif
