// Reads what a page says, block by block, and marks blocks of it. Runs in a world of its own that the page cannot see,
// and only when the program asks for it.
(function () {
    'use strict';
    if (window.tessaReader) return;

    var mostText = 200000, mostNodes = 60000, deepest = 500;
    var skipped = new Set(['script', 'style', 'noscript', 'template', 'head', 'object', 'svg', 'canvas', 'video',
                           'audio', 'select', 'textarea', 'datalist', 'tessa-marks']);
    // Where advertisements stand, by what pages call such places.
    var advertisements = 'ins.adsbygoogle, [id^="ad-"], [id^="ads-"], [id^="google_ads"], [class~="ad" i], ' +
        '[class~="ads" i], [class~="advert" i], [class~="advertisement" i], [class~="sponsored" i], ' +
        '[class*="ad-banner" i], [class*="ad-slot" i], [class*="ad-container" i], [data-ad], [data-ad-slot], ' +
        '[aria-label="advertisement" i], [aria-label="sponsored" i]';
    var headings = new Set(['h1', 'h2', 'h3', 'h4', 'h5', 'h6']);
    // How an element stands in its line. To look this up is quicker than to take the word apart again.
    var BLOCK = 0, INLINE = 1, CELL = 2, ATOMIC = 3, standings = new Map();

    function standingOf(display) {
        var standing = standings.get(display);
        if (standing === undefined) {
            standing = display === 'inline' ? INLINE : display === 'table-cell' ? CELL :
                display.startsWith('inline') || display === 'contents' || display.startsWith('ruby') ? ATOMIC : BLOCK;
            standings.set(display, standing);
        }
        return standing;
    }

    function keepsLines(space) { return space.startsWith('pre') && space !== 'pre-line' || space === 'break-spaces'; }

    function plain(text) {
        return text.replace(/[\u0000-\u001f\u007f-\u009f\u00ad\u200b-\u200f\u2028-\u202e\u2060-\u206f\ufeff]/g, ' ')
            .replace(/\s+/g, ' ').trim();
    }

    /// Calls back for each block, with its kind, its text and the nodes that it stands in. Whether a password is asked
    /// for.
    function blocks(onBlock) {
        var text = '', kind = '', nodes = [], left = mostText, count = mostNodes, password = false;

        function end() {
            var said = text === '' ? '' : plain(text);
            if (said !== '') {
                left -= said.length;
                onBlock(kind, said, nodes);
            }
            text = '';
            nodes = [];
        }

        function addLine(node, line, how) {
            // A block of advertisement or heading is one from its first word on.
            if (nodes.length === 0) kind = how.kind;
            text += line.length > left ? line.slice(0, left) : line;
            if (nodes[nodes.length - 1] !== node) nodes.push(node);
        }

        // What a text looks like is asked only where there is one, because asking is what takes the time.
        function add(node, how) {
            // Without a blank or a letter there is nothing to be said.
            var data = node.data;
            if (data === '') return;
            if (how.visible === undefined) how.visible = !how.style || how.style.visibility === 'visible';
            if (!how.visible) return;
            if (data.includes('\n') && how.style && keepsLines(how.style.whiteSpace)) {
                data.split('\n').forEach(function (line, index) {
                    if (index > 0) end();
                    addLine(node, line, how);
                });
            } else {
                addLine(node, data, how);
            }
        }

        // Of a frame that is the page's own; into others nobody can look from here.
        function bodyOf(frame) {
            var inside = frame.contentDocument;
            return inside && inside.body && frame.clientWidth > 0 && frame.clientHeight > 0 ? inside.body : null;
        }

        // A document, or what is in the shadow of an element of another tree. Its advertisements are found at once.
        function treeOf(root, outer) {
            return { advertisements: new Set(root.querySelectorAll(advertisements)), outer: outer };
        }

        function isHeading(element, name) {
            return headings.has(name) || element.getAttribute('role') === 'heading';
        }

        function enter(element, name, how) {
            var style = getComputedStyle(element), display = style.display;
            if (display === 'none') return;
            if (name === 'input' && element.type === 'password') password = true;
            var inner = { depth: how.depth + 1, style: style, visible: undefined, kind: how.kind, tree: how.tree };
            if (how.tree.advertisements.has(element)) inner.kind = 'a';
            else if (how.kind === 'p' && isHeading(element, name)) inner.kind = 'h';
            var standing = standingOf(display);
            if (name === 'br' || standing === BLOCK) end();
            else if (standing !== INLINE) text += ' ';
            if (name === 'iframe' || name === 'frame') {
                var within = bodyOf(element);
                if (within) {
                    inner.tree = treeOf(within.ownerDocument, null);
                    end();
                    enter(within, within.localName, inner);
                    end();
                } else if (name === 'frame' && how.depth < deepest) {
                    walk(element, name, inner);
                }
            } else if (how.depth < deepest) {
                walk(element, name, inner);
            }
            if (standing === BLOCK) end();
            else if (standing !== INLINE) text += ' ';
        }

        function visit(child, how) {
            --count;
            var type = child.nodeType;
            if (type === 3) {
                add(child, how);
            } else if (type === 1) {
                var name = child.localName;
                if (!skipped.has(name)) enter(child, name, how);
            }
        }

        function walk(parent, name, how) {
            var shadow = parent.shadowRoot, assigned = name === 'slot' ? parent.assignedNodes() : [];
            if (shadow) how.tree = treeOf(shadow, how.tree);
            if (assigned.length > 0) {
                how.tree = how.tree.outer || how.tree;
                for (var i = 0; i < assigned.length && left > 0 && count > 0; ++i) visit(assigned[i], how);
                return;
            }
            for (var child = (shadow || parent).firstChild; child && left > 0 && count > 0; child = child.nextSibling)
                visit(child, how);
        }

        try {
            if (document.body)
                enter(document.body, document.body.localName,
                      { depth: 0, style: null, visible: true, kind: 'p', tree: treeOf(document, null) });
        } catch (tooDeep) {
            // What was read until there is better than nothing.
        }
        end();
        return password || Array.prototype.some.call(document.querySelectorAll('input[type=password]'),
                                                     function (field) { return field.getClientRects().length > 0; });
    }

    function read() {
        var lines = ['u' + location.href];
        var password = blocks(function (kind, text) { lines.push(kind + text); });
        if (password) lines.push('!');
        return lines.join('\n');
    }

    // Marks lie over the page, which keeps its own elements as they are.
    var host = null, marked = [], observer = null;

    // Where the picture of a document begins on the page.
    function placeOfFrame(inside) {
        var all = { left: 0, top: 0 };
        for (var frame = inside.defaultView && inside.defaultView.frameElement; frame; frame = frame.ownerDocument.defaultView.frameElement) {
            var rect = frame.getBoundingClientRect();
            all.left += rect.left + frame.clientLeft;
            all.top += rect.top + frame.clientTop;
            if (frame.ownerDocument === document) break;
        }
        return all;
    }

    function place() {
        if (!host) return;
        var origin = host.getBoundingClientRect();
        marked.forEach(function (each) {
            var rect = each.range.getBoundingClientRect(), frame = placeOfFrame(each.range.startContainer.ownerDocument);
            each.mark.style.display = rect.width > 0 ? 'block' : 'none';
            each.mark.style.left = frame.left + rect.left - origin.left - 6 + 'px';
            each.mark.style.top = frame.top + rect.top - origin.top - 3 + 'px';
            each.mark.style.width = rect.width + 12 + 'px';
            each.mark.style.height = rect.height + 6 + 'px';
        });
    }

    function hide() {
        if (!host) return;
        removeEventListener('scroll', place, true);
        removeEventListener('resize', place);
        observer.disconnect();
        host.remove();
        host = null;
        marked = [];
    }

    function prepare() {
        host = document.createElement('tessa-marks');
        host.setAttribute('aria-hidden', 'true');
        host.style.cssText = 'all: initial; position: absolute; left: 0; top: 0; width: 0; height: 0; ' +
                             'pointer-events: none; z-index: 2147483647;';
        document.documentElement.append(host);
        addEventListener('scroll', place, true);
        addEventListener('resize', place);
        observer = new ResizeObserver(place);
        observer.observe(document.documentElement);
        var root = host.attachShadow({ mode: 'closed' }), sheet = new CSSStyleSheet();
        sheet.replaceSync('@media print { :host { display: none !important; } }');
        root.adoptedStyleSheets = [sheet];
        return root;
    }

    function compared(text) { return text.replace(/[^\p{L}\p{N}]+/gu, ''); }

    /// How many of the passages are there.
    function show(passages, first) {
        hide();
        if (passages.length === 0) return 0;
        var wanted = new Map(passages.map(function (each, index) { return [compared(each), index]; }));
        var found = new Map();
        blocks(function (kind, text, nodes) {
            var index = wanted.get(compared(text));
            if (index !== undefined && !found.has(index)) found.set(index, nodes);
        });
        if (found.size === 0) return 0;
        var root = prepare();
        found.forEach(function (nodes, index) {
            var inside = nodes[0].ownerDocument, range = inside.createRange(), mark = document.createElement('div');
            range.setStartBefore(nodes[0]);
            range.setEndAfter(nodes[nodes.length - 1]);
            mark.style.cssText = 'position: absolute; box-sizing: border-box; border-radius: 4px; ' +
                'background: rgba(255, 196, 0, 0.22); border-left: 4px solid #e09000;' +
                (index === first ? ' outline: 2px solid #e09000;' : '');
            root.append(mark);
            if (inside !== document) inside.addEventListener('scroll', place, true);
            marked.push({ range: range, mark: mark });
        });
        var nodes = found.get(first) || found.values().next().value;
        nodes[0].parentElement.scrollIntoView({ block: 'center' });
        place();
        return found.size;
    }

    window.tessaReader = { read: read, show: show };
})();
