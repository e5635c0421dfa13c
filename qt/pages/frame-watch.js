// Runs in every frame, in a world of its own that the page cannot see. One script does all that frames need: each one
// more, and each later one, would cost a page of many frames dearly.
// - The engine says nothing when a page shows a new document from the address that it had already, so each document of
//   a page reports itself as soon as there is one.
// - The engine has no signal for frames, so each reports itself when it is there and when it is loaded.
// - It tells the program whether the page holds what its user has typed or chosen and not sent, so that such a page is
//   not put to sleep. What a page fills in by itself is its own business.
(function () {
    var touched = new Set(), told = false, name = Math.random().toString(36).slice(2);

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

    function look() {
        touched.forEach(function (field) { if (!holds(field)) touched.delete(field); });
        var held = touched.size > 0;
        if (held === told) return;
        told = held;
        tell(held ? 'yes' : 'no');
    }

    if (window === window.parent) {
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
    // What was sent without a change of page, as in a chat, is no longer held when the user leaves the tab.
    document.addEventListener('visibilitychange', look);
    window.addEventListener('reset', function () { setTimeout(look, 0); }, true);
    window.addEventListener('pagehide', function () { touched.clear(); look(); });
})();
