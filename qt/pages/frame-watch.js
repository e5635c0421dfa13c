// Runs in every frame, in a world of its own that the page cannot see. One script does all that frames need: each one
// more, and each later one, would cost a page of many frames dearly.
// - The engine says nothing when a page shows a new document from the address that it had already. So each document of
//   a page reports itself as soon as there is one.
// - The engine has no signal for frames, so each reports itself when it is there and when it is loaded.
// - The space bar at the end of a page leads to the next one that is to be read.
// - It tells the program whether the page holds what its user has typed or chosen and not sent. Such a page is not put
//   to sleep. It also tells whether that is a text that is asked about before the program ends. What a page fills in by
//   itself is its own business.
(function () {
    var touched = new Set(), told = 'no', name = Math.random().toString(36).slice(2);

    function tell(state) { console.debug('%1 input ' + state + ' ' + name); }

    function holds(field) {
        if (!field.isConnected) return false;
        if (field.type === 'checkbox' || field.type === 'radio') return field.checked !== field.defaultChecked;
        if (field.type === 'file') return field.files.length > 0;
        if (field.options) return Array.prototype.some.call(field.options, function (each) {
            return each.selected !== each.defaultSelected;
        });
        if (typeof field.value === 'string') return field.value !== field.defaultValue;
        return field.textContent.trim() !== '';
    }

    var lines = ['text', 'email', 'url', 'tel', 'password', 'number'];

    function isLine(field) { return field instanceof HTMLInputElement && lines.indexOf(field.type) >= 0; }

    // It stays in its box when it has been done.
    function isSearch(field) {
        return field.closest('[role=search], [role=searchbox], [role=combobox], [type=search]') !== null;
    }

    // A text of several lines, what is posted, and more than one line; a single one may be a search, too.
    function isText(field) {
        if (isLine(field)) return field.form !== null && field.form.method === 'post';
        return field instanceof HTMLTextAreaElement || typeof field.value !== 'string';
    }

    function state() {
        var texts = Array.from(touched).filter(function (field) { return !isSearch(field); });
        if (texts.some(isText) || texts.filter(isLine).length > 1) return 'text';
        return touched.size > 0 ? 'yes' : 'no';
    }

    function look() {
        touched.forEach(function (field) { if (!holds(field)) touched.delete(field); });
        var now = state();
        if (now === told) return;
        told = now;
        tell(now);
    }

    // Asked by the program. A frame from elsewhere cannot be reached; it has told when somebody last typed in it.
    window.lookAtInput = function () {
        look();
        for (var i = 0; i < window.length; ++i) {
            try { window[i].lookAtInput(); } catch (foreign) { continue; }
        }
    };

    // What a page, or something in it, makes of the space bar is its own business. A page that scrolls is not at its end.
    function readOn(event) {
        var bare = !event.ctrlKey && !event.altKey && !event.metaKey && !event.shiftKey && !event.repeat;
        if (event.key !== ' ' || !bare || !event.isTrusted) return;
        if (event.target !== document.body && event.target !== document.documentElement) return;
        if (document.designMode === 'on' || document.body.isContentEditable) return;
        var page = document.scrollingElement || document.documentElement;
        if (page.scrollTop + window.innerHeight < page.scrollHeight - 2) return;
        // Once all that listen have been told.
        setTimeout(function () { if (!event.defaultPrevented) console.debug('%1 end'); }, 0);
    }

    if (window === window.parent) {
        window.addEventListener('keydown', readOn);
        console.debug('%1 page ' + location.href);
        tell('new');
    } else {
        document.addEventListener('DOMContentLoaded', function () { console.log('%1 ready ' + location.href); });
        window.addEventListener('load', function () { console.log('%1 load ' + location.href); });
        // What a frame wants is asked for in its own name.
        ['pointerdown', 'pointerup', 'keydown'].forEach(function (kind) {
            window.addEventListener(kind, function (event) {
                if (event.isTrusted && !event.repeat) console.debug('%1 acted ' + self.origin);
            }, true);
        });
    }
    window.addEventListener('input', function (event) {
        var field = event.composedPath()[0];
        if (!event.isTrusted || !(field instanceof Element)) return;
        touched.add(field);
        look();
    }, true);
    // What was sent without a change of page, as in a chat, is let go when the user leaves the tab.
    document.addEventListener('visibilitychange', look);
    window.addEventListener('reset', function () { setTimeout(look, 0); }, true);
    window.addEventListener('pagehide', function () { touched.clear(); look(); });
})();
