// Finds sections of the guide that hold all words that are typed, those with a word in their heading first.
"use strict";

(() => {
    const root = document.body.dataset.root;
    const most = 20;

    const holder = document.getElementById("search");
    holder.innerHTML = '<input type="search" placeholder="Search (press /)" aria-label="Search the guide" ' +
        'autocomplete="off"><ol hidden aria-label="Found"></ol><p hidden role="status"></p>';
    const [input, list, status] = holder.children;

    const escaped = (text) => text.replace(/[.*+?^${}()|[\]\\]/g, "\\$&");
    const patternOf = (word) => new RegExp((/^\w/.test(word) ? "\\b" : "") + escaped(word), "gi");

    const scoreOf = ([, title, heading, text], patterns) => {
        let score = 0;
        for (const pattern of patterns) {
            const inText = (text.match(pattern) || []).length;
            const inHeading = (heading.match(pattern) || []).length;
            const inTitle = (title.match(pattern) || []).length;
            if (inText + inHeading + inTitle === 0) return 0;
            score += Math.min(inText, 5) + 20 * inHeading + 5 * inTitle;
        }
        return score;
    };

    const marked = (text, patterns) => {
        const parts = document.createDocumentFragment();
        const any = new RegExp(patterns.map((pattern) => pattern.source).join("|"), "gi");
        let done = 0;
        for (const match of text.matchAll(any)) {
            parts.append(text.slice(done, match.index));
            const mark = document.createElement("mark");
            mark.textContent = match[0];
            parts.append(mark);
            done = match.index + match[0].length;
        }
        parts.append(text.slice(done));
        return parts;
    };

    const excerpt = (text, patterns) => {
        const at = Math.max(0, text.search(new RegExp(patterns[0].source, "i")));
        const from = at < 60 ? 0 : text.indexOf(" ", at - 60) + 1;
        return (from > 0 ? "… " : "") + text.slice(from, from + 160) + (from + 160 < text.length ? " …" : "");
    };

    const entry = ([link, title, heading, text], patterns) => {
        const item = document.createElement("li");
        const anchor = document.createElement("a");
        anchor.href = root + link;
        anchor.append(marked(title === heading ? title : title + ": " + heading, patterns));
        const lines = document.createElement("span");
        lines.append(marked(excerpt(text, patterns), patterns));
        anchor.append(lines);
        item.append(anchor);
        return item;
    };

    const search = () => {
        const words = input.value.trim().split(/\s+/).filter((word) => word !== "");
        const patterns = words.map(patternOf);
        const found = words.length === 0 ? [] : SECTIONS
            .map((section) => [scoreOf(section, patterns), section])
            .filter(([score]) => score > 0)
            .sort(([one], [other]) => other - one);
        list.replaceChildren(...found.slice(0, most).map(([, section]) => entry(section, patterns)));
        list.hidden = found.length === 0;
        status.hidden = words.length === 0 || found.length > 0;
        status.textContent = "Nothing in the guide has all of these words.";
    };

    const move = (step) => {
        const links = [...list.querySelectorAll("a")];
        const at = links.indexOf(document.activeElement) + step;
        if (at < 0) input.focus();
        else if (at < links.length) links[at].focus();
    };

    const close = () => {
        list.hidden = true;
        status.hidden = true;
    };

    input.addEventListener("input", search);
    input.addEventListener("focus", search);
    input.addEventListener("keydown", (event) => {
        if (event.key === "Enter" && !list.hidden) list.querySelector("a").click();
    });
    holder.addEventListener("keydown", (event) => {
        if (event.key === "ArrowDown" || event.key === "ArrowUp") {
            move(event.key === "ArrowDown" ? 1 : -1);
            event.preventDefault();
        } else if (event.key === "Escape") {
            input.value = "";
            close();
            input.blur();
        }
    });
    list.addEventListener("click", close);
    document.addEventListener("click", (event) => {
        if (!holder.contains(event.target)) close();
    });
    document.addEventListener("keydown", (event) => {
        if (event.key === "/" && document.activeElement !== input) {
            input.focus();
            event.preventDefault();
        }
    });
})();
