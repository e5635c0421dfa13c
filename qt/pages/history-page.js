// What the page of the history does. It asks the program, by lines that no page can write, and is told what to show.
(function () {
    'use strict';
    if (window.tessaOwn) return;

    var words = document.getElementById('words'), list = document.getElementById('list');
    var group = document.getElementById('group'), site = document.getElementById('site');
    var more = document.getElementById('more'), count = document.getElementById('count');
    var actions = ['open', 'keep', 'delete'].map(function (id) { return document.getElementById(id); });
    var asked = 0, shown = 0, below = 0, waiting = false, chosenSite = '', last = null;
    // Keys that were meant for the answer that is still to come.
    var early = [];

    function ask(what, fields) {
        var parts = Object.keys(fields).map(function (key) { return key + '=' + encodeURIComponent(fields[key]); });
        console.debug('%1 own ' + what + '?' + parts.join('&'));
    }

    function find(from) {
        waiting = true;
        early = [];
        ask('find', { n: ++asked, words: words.value, site: chosenSite, group: group.value, below: from });
    }

    function rows() { return Array.from(list.querySelectorAll('li')); }
    function selected() { return rows().filter(function (row) { return row.querySelector('input').checked; }); }

    function showActions() {
        var some = selected().length > 0;
        actions.forEach(function (button) { button.disabled = !some; });
    }

    function ids() {
        var chosen = selected();
        if (chosen.length === 0) {
            var row = document.activeElement && document.activeElement.closest('li');
            if (row) chosen = [row];
        }
        return chosen.map(function (row) { return row.dataset.id; }).join(',');
    }

    function act(what) {
        var chosen = ids();
        if (chosen !== '') ask(what, { ids: chosen });
    }

    function chooseSite(name) {
        chosenSite = name;
        site.hidden = name === '';
        site.querySelector('span').textContent = name;
        find(0);
    }

    function focusRow(index) {
        var all = rows();
        if (index < 0) return words.focus();
        if (all[index]) all[index].querySelector('a').focus();
    }

    // Whoever types fast chooses from what is found, not from what is still shown.
    function isEarly(key) {
        if (!waiting || document.activeElement !== words) return false;
        return key === 'ArrowDown' || ((key === 'Enter' || key === 'ArrowUp') && early.length > 0);
    }

    function pressEarly() {
        var keys = early, at = -1;
        early = [];
        keys.forEach(function (key) {
            if (key !== 'Enter') focusRow(at = Math.min(Math.max(at + (key === 'ArrowDown' ? 1 : -1), -1), rows().length - 1));
            else if (at >= 0) rows()[at].querySelector('a').click();
        });
    }

    // From one row to the next; the words are above the first.
    function onKey(event) {
        var row = document.activeElement && document.activeElement.closest('li');
        var at = row ? rows().indexOf(row) : -1;
        if (document.activeElement.closest('select, .actions, #site')) return;
        if (isEarly(event.key)) early.push(event.key);
        else if (event.key === 'ArrowDown') focusRow(at + 1);
        else if (event.key === 'ArrowUp' && row) focusRow(at - 1);
        else if (event.key === ' ' && row && document.activeElement.localName === 'a') toggle(row, event.shiftKey);
        else if (event.key === 'Delete' && row) act('delete');
        else if (event.key === 'Enter' && row && selected().length > 0 && document.activeElement.localName === 'a') act('open');
        else if (event.key === 'Escape' && (words.value !== '' || chosenSite !== '')) { words.value = ''; chooseSite(''); words.focus(); }
        else return;
        event.preventDefault();
    }

    function toggle(row, toLast) {
        var box = row.querySelector('input');
        box.checked = !box.checked;
        if (toLast) selectTo(row, box.checked);
        last = row;
        showActions();
    }

    // With Shift all between the row chosen last and this one.
    function selectTo(row, on) {
        var all = rows(), from = all.indexOf(last), to = all.indexOf(row);
        if (from < 0) return;
        for (var i = Math.min(from, to); i <= Math.max(from, to); ++i) all[i].querySelector('input').checked = on;
    }

    list.addEventListener('click', function (event) {
        var row = event.target.closest('li');
        if (event.target.localName === 'input') {
            if (event.shiftKey) selectTo(row, event.target.checked);
            last = row;
            showActions();
        }
        var button = event.target.closest('button');
        if (!button) return;
        if (button.dataset.site) { chooseSite(button.dataset.site); words.focus(); }
        if (button.dataset.from) ask('delete-day', { from: button.dataset.from, until: button.dataset.until });
    });
    words.addEventListener('input', function () { find(0); });
    group.addEventListener('change', function () { find(0); });
    document.getElementById('search').addEventListener('submit', function (event) { event.preventDefault(); });
    document.addEventListener('keydown', onKey);
    actions.forEach(function (button) { button.addEventListener('click', function () { act(button.id); }); });
    document.getElementById('all-sites').addEventListener('click', function () { chooseSite(''); words.focus(); });
    document.getElementById('delete-site').addEventListener('click', function () { ask('delete-site', { site: chosenSite }); });
    more.addEventListener('click', function () { find(below); });
    addEventListener('scroll', function () {
        var end = document.scrollingElement;
        if (!more.hidden && !waiting && end.scrollTop + innerHeight > end.scrollHeight - 600) find(below);
    });

    // "list N APPEND MORE BELOW", what is said of it, and the rows; "groups", and one in each line; "again"; "anew".
    window.tessaOwn = function (message) {
        var lines = message.split('\n'), head = lines[0].split(' ');
        if (head[0] === 'again') return find(0);
        if (head[0] === 'anew') {
            // What is typed from now on is for what comes.
            words.focus();
            if (selected().length === 0) find(0);
            return;
        }
        if (head[0] === 'groups') {
            var chosen = group.value;
            group.length = 1;
            lines.slice(1).forEach(function (name) { group.add(new Option(name, name)); });
            group.value = chosen;
            group.hidden = lines.length < 2;
            return;
        }
        var number = Number(head[1]);
        if (number < shown) return;
        shown = number;
        waiting = number < asked;
        if (head[2] === '0') list.innerHTML = '';
        count.textContent = lines[1];
        list.insertAdjacentHTML('beforeend', lines.slice(2).join('\n'));
        more.hidden = head[3] === '0';
        below = Number(head[4]);
        showActions();
        if (waiting) return;
        document.title = (words.value.trim() === '' ? '' : words.value.trim() + ' - ') + 'History';
        pressEarly();
    };
    words.focus();
    find(0);
})();
