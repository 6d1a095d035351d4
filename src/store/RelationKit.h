// Intrusive one-to-many relations. The parent embeds a Top, the child a Bot; both hold links to each other's
// ends.
//
// A parent end points at the last child; the children form a ring, last to first. A child in no relation has
// null links. Four kinds differ in what a child carries: DoubleAggregation (next, prev, source),
// SingleAggregation (next, source), SingleCollection and SingleRing (next). Third argument of an end: the
// domain; persistent links are stored pointers and every write touches its block first, transient ones are
// native pointers.
//
// Cost: Add is constant; Remove of a double aggregation is constant, of the other kinds linear in the ring.
#pragma once

#include "base/Assert.h"
#include "store/Stored.h"

namespace corvane {

inline constexpr int kTransient = 1, kPersistent = 3, kWindows = 5;

// Policy of links outside the pools: a link that is followed must not be null, a write needs no barrier.
struct InternalPointerCNTRL {
    template <class End>
    using Link = End*;
    template <class End>
    static End* Read(End* link) {
        return link;
    }
    template <class End>
    static void Write(End*& link, End* value) {
        link = value;
    }
};

// Policy of links in a pool: the barrier before each write.
struct InternalPointerPDC {
    template <class End>
    using Link = Ptr<End>;
    template <class End>
    static End* Read(const Ptr<End>& link) {
        return link.Get();
    }
    template <class End>
    static void Write(Ptr<End>& link, End* value) {
        link = value;
    }
};

template <int Domain>
struct PolicyOf {
    using Type = InternalPointerCNTRL;
};
template <>
struct PolicyOf<kPersistent> {
    using Type = InternalPointerPDC;
};

namespace relation {

template <int Domain, class End>
using Link = typename PolicyOf<Domain>::Type::template Link<End>;

template <class Child, int Domain>
struct ParentEnd;

template <int Domain>
struct DoubleChild {
    using Parent = ParentEnd<DoubleChild, Domain>;
    static constexpr bool kHasPrev = true, kHasSource = true;
    Link<Domain, DoubleChild> next, prev;
    Link<Domain, Parent> source;
};

template <int Domain>
struct SingleChild {
    using Parent = ParentEnd<SingleChild, Domain>;
    static constexpr bool kHasPrev = false, kHasSource = true;
    Link<Domain, SingleChild> next;
    Link<Domain, Parent> source;
};

template <int Domain>
struct CollectionChild {
    using Parent = ParentEnd<CollectionChild, Domain>;
    static constexpr bool kHasPrev = false, kHasSource = false;
    Link<Domain, CollectionChild> next;
};

template <class Child, int Domain>
struct ParentEnd {
    Link<Domain, Child> last;
};

// The operations on ends, one set for all kinds.
template <class Child, int Domain>
class Kit {
    using Policy = typename PolicyOf<Domain>::Type;
    using Parent = typename Child::Parent;

public:
    static Child* Last(const Parent* s) { return Policy::Read(s->last); }
    static Child* First(const Parent* s) { return Last(s) ? NextInRing(Last(s)) : nullptr; }
    static Child* NextInRing(const Child* c) { return Policy::Read(c->next); }
    static Parent* Par(const Child* c) {
        static_assert(Child::kHasSource);
        return Policy::Read(c->source);
    }

    // The child whose next is b; walks the ring where a child has no prev.
    static Child* PrevInRing(const Child* b) {
        CORVANE_ASSERT_AS(b && NextInRing(b), "b && b->next");
        if constexpr (Child::kHasPrev) {
            return Policy::Read(b->prev);
        } else {
            Child* s = NextInRing(b);
            while (NextInRing(s) != b) {
                s = NextInRing(s);
                CORVANE_ASSERT_AS(s, "s -> next == s");
            }
            return s;
        }
    }

    // Makes b the last child.
    static void Add(Parent* s, Child* b) {
        if constexpr (Child::kHasSource) {
            CORVANE_ASSERT_AS(s && b && !Par(b), "s && b && !(b -> source)");
            Policy::Write(b->source, s);
        } else {
            CORVANE_ASSERT_AS(s && b && !NextInRing(b), "s && b && !(b -> next)");
        }
        Child* last = Last(s);
        LinkBehind(last ? last : b, b);
        Policy::Write(s->last, b);
    }

    // Puts t directly behind p, or first where p is null.
    static void Insert(Parent* s, Child* t, Child* p) {
        if constexpr (Child::kHasSource) {
            CORVANE_ASSERT_AS(t && s && !Par(t), "t && s && par(t) == NULL");
        } else {
            CORVANE_ASSERT_AS(t && !NextInRing(t), "t && (Elem<1>*)t->next == NULL");
        }
        Child* last = Last(s);
        LinkBehind(p ? p : last ? last : t, t);
        if (!last || (p && p == last)) Policy::Write(s->last, t);
        if constexpr (Child::kHasSource) Policy::Write(t->source, s);
    }

    // Unlinks t and clears its links.
    static void Remove(Child* t) {
        Parent* s = t ? Par(t) : nullptr;
        CORVANE_ASSERT_AS(t && s, "t && t && s");
        Unlink(s, t);
    }
    static void Remove(Parent* s, Child* t) {
        CORVANE_ASSERT_AS(t && s && NextInRing(t), "t && s");
        Child* ptr = Last(s);
        CORVANE_ASSERT_AS(ptr, "tprev");
        for (Child* end = ptr; ptr != t;) {
            ptr = NextInRing(ptr);
            if (ptr == end) break;
        }
        CORVANE_ASSERT_AS(ptr == t, "ptr == t");
        Unlink(s, t);
    }

private:
    // t between p and what follows p; p may be t itself, for a ring of one.
    static void LinkBehind(Child* p, Child* t) {
        Child* next = p == t ? t : NextInRing(p);
        Policy::Write(t->next, next);
        Policy::Write(p->next, t);
        if constexpr (Child::kHasPrev) {
            Policy::Write(t->prev, p);
            Policy::Write(next->prev, t);
        }
    }

    static void Unlink(Parent* s, Child* t) {
        Child *prev = PrevInRing(t), *next = NextInRing(t);
        if (prev == t) {
            Policy::Write(s->last, static_cast<Child*>(nullptr));
        } else {
            if (Last(s) == t) Policy::Write(s->last, prev);
            Policy::Write(prev->next, next);
            if constexpr (Child::kHasPrev) Policy::Write(next->prev, prev);
        }
        if constexpr (Child::kHasSource) Policy::Write(t->source, static_cast<Parent*>(nullptr));
        if constexpr (Child::kHasPrev) Policy::Write(t->prev, static_cast<Child*>(nullptr));
        Policy::Write(t->next, static_cast<Child*>(nullptr));
    }
};

// A walk in both directions. What Next or Prev returned may be unlinked before the next call.
template <class Child, int Domain>
class Cursor {
    using Kit = relation::Kit<Child, Domain>;
    using Parent = typename Child::Parent;

public:
    Cursor() = default;
    explicit Cursor(const Parent* parent) { Start(parent); }

    void Start(const Parent* parent) {
        _last = _back = Kit::Last(parent);
        _first = _forward = Kit::First(parent);
    }

    // Around t: Next gives the child behind t, Prev the one before it.
    void StartAt(const Parent* parent, const Child* t) {
        CORVANE_ASSERT_AS(t && Kit::NextInRing(t), "t && t -> source && t -> next");
        Start(parent);
        _back = t == _first ? nullptr : Kit::PrevInRing(t);
        _forward = t == _last ? nullptr : Kit::NextInRing(t);
    }

    Child* Next() {
        Child* c = _forward;
        _back = c ? Kit::PrevInRing(c) : _last;
        _forward = c && c != _last ? Kit::NextInRing(c) : nullptr;
        return c;
    }

    // As Next, for walks that never turn back: no look at the child before, which a single link makes linear.
    Child* NextOnly() {
        Child* c = _forward;
        _forward = c && c != _last ? Kit::NextInRing(c) : nullptr;
        return c;
    }

    Child* Prev() {
        Child* c = _back;
        _forward = c ? Kit::NextInRing(c) : _first;
        _back = c && c != _first ? Kit::PrevInRing(c) : nullptr;
        return c;
    }

private:
    Child *_first = nullptr, *_last = nullptr, *_forward = nullptr, *_back = nullptr;
};

}  // namespace relation

// The ends that classes embed. T is the embedding class, N the relation's number, D its domain.
#define CORVANE_RELATION_ENDS(Top, Bot, ChildKind)                  \
    template <class T, int N, int D>                                \
    struct Bot : relation::ChildKind<D> {                           \
        using Owner = T;                                            \
        using End = relation::ChildKind<D>;                         \
        static constexpr int kNumber = N, kDomain = D;              \
    };                                                              \
    template <class T, int N, int D>                                \
    struct Top : relation::ParentEnd<relation::ChildKind<D>, D> {   \
        using Owner = T;                                            \
        using End = relation::ParentEnd<relation::ChildKind<D>, D>; \
        static constexpr int kNumber = N, kDomain = D;              \
    };

CORVANE_RELATION_ENDS(TopT, BotT, DoubleChild)
CORVANE_RELATION_ENDS(Top2T, Bot2T, SingleChild)
CORVANE_RELATION_ENDS(Top3T, Bot3T, CollectionChild)
CORVANE_RELATION_ENDS(SingleRingT, ElemT, CollectionChild)
#undef CORVANE_RELATION_ENDS

// The readable face of one relation, in terms of the classes. A named constant without data for each pair.
template <class TopEnd, class BotEnd>
class Relation {
    static_assert(TopEnd::kNumber == BotEnd::kNumber && TopEnd::kDomain == BotEnd::kDomain);
    using ChildEnd = typename BotEnd::End;
    using ParentEnd = typename ChildEnd::Parent;
    using Kit = relation::Kit<ChildEnd, TopEnd::kDomain>;
    using Cursor = relation::Cursor<ChildEnd, TopEnd::kDomain>;

public:
    using Parent = typename TopEnd::Owner;
    using Child = typename BotEnd::Owner;

    void Add(Parent* s, Child* b) const { Kit::Add(Up(s), Down(b)); }
    void Insert(Parent* s, Child* t, Child* behind) const { Kit::Insert(Up(s), Down(t), Down(behind)); }
    void Remove(Child* t) const { Kit::Remove(Down(t)); }
    void Remove(Parent* s, Child* t) const { Kit::Remove(Up(s), Down(t)); }

    Child* First(const Parent* s) const { return Owner(Kit::First(Up(s))); }
    Child* Last(const Parent* s) const { return Owner(Kit::Last(Up(s))); }
    bool IsEmpty(const Parent* s) const { return !Kit::Last(Up(s)); }
    // Null for a child in no relation.
    Parent* ParentOf(const Child* c) const {
        ParentEnd* end = Kit::Par(Down(c));
        return end ? static_cast<Parent*>(static_cast<TopEnd*>(end)) : nullptr;
    }
    bool IsLinked(const Child* c) const { return Kit::NextInRing(Down(c)) != nullptr; }
    // The child behind c, null behind the last; null for a child in no relation.
    Child* Next(const Child* c) const {
        ParentEnd* s = Kit::Par(Down(c));
        return s && Kit::Last(s) != Down(c) ? Owner(Kit::NextInRing(Down(c))) : nullptr;
    }
    // The child before c, null before the first. Linear for single links.
    Child* Prev(const Child* c) const {
        ParentEnd* s = Kit::Par(Down(c));
        return s && Kit::First(s) != Down(c) ? Owner(Kit::PrevInRing(Down(c))) : nullptr;
    }
    int Count(const Parent* s) const {
        int n = 0;
        for (Cursor c(Up(s)); c.NextOnly();) ++n;
        return n;
    }

    // A walk that may remove what Next or Prev just returned.
    class Walk {
    public:
        Walk() = default;
        explicit Walk(const Parent* s) : _cursor(Up(s)) {}
        Walk(const Parent* s, const Child* around) { _cursor.StartAt(Up(s), Down(around)); }
        Child* Next() { return Owner(_cursor.Next()); }
        Child* NextOnly() { return Owner(_cursor.NextOnly()); }
        Child* Prev() { return Owner(_cursor.Prev()); }

    private:
        Cursor _cursor;
    };

    // for (Child* c : relation.Of(parent)): each child once, in order; the current one may be removed.
    class Range {
    public:
        explicit Range(const Parent* s) : _parent(s) {}
        struct End {};
        class Iterator {
        public:
            explicit Iterator(const Parent* s) : _walk(s), _current(_walk.NextOnly()) {}
            Child* operator*() const { return _current; }
            Iterator& operator++() {
                _current = _walk.NextOnly();
                return *this;
            }
            bool operator!=(End) const { return _current != nullptr; }

        private:
            Walk _walk;
            Child* _current;
        };
        Iterator begin() const { return Iterator(_parent); }
        End end() const { return {}; }

    private:
        const Parent* _parent;
    };
    Range Of(const Parent* s) const { return Range(s); }

private:
    static ParentEnd* Up(const Parent* s) {
        return const_cast<ParentEnd*>(static_cast<const ParentEnd*>(static_cast<const TopEnd*>(s)));
    }
    static ChildEnd* Down(const Child* c) {
        return const_cast<ChildEnd*>(static_cast<const ChildEnd*>(static_cast<const BotEnd*>(c)));
    }
    static Child* Owner(ChildEnd* c) { return c ? static_cast<Child*>(static_cast<BotEnd*>(c)) : nullptr; }
};

}  // namespace corvane
