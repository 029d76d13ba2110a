#pragma once

#include <string_view>

namespace orvenza {

/// The style of the page of the failure table.
inline constexpr std::string_view kTablePageStyle = R"(body { max-width: 76rem; }
form { display: grid; grid-template-columns: repeat(auto-fit, minmax(9.5rem, 1fr)); gap: .6rem 1rem; align-items: end;
  padding: .8rem; background: var(--panel); border: 1px solid var(--line); border-radius: .4rem; }
[hidden] { display: none !important; }
label { display: block; font-size: .9rem; color: var(--soft); }
select, input, button { width: 100%; font: inherit; padding: .35rem; color: var(--ink); background: var(--ground);
  border: 1px solid var(--soft); border-radius: .3rem; min-height: 2.4rem; }
:focus-visible { outline: 3px solid var(--link); outline-offset: 1px; }
#shown { font-weight: 600; margin: .8rem 0; }
section table { width: 100%; table-layout: fixed; background: var(--panel); }
section th:nth-child(1) { width: 20%; } section th:nth-child(2) { width: 16%; } section th:nth-child(3) { width: 10%; }
section th:nth-child(4) { width: 14%; } section th:nth-child(5) { width: 13%; }
thead th { color: var(--soft); font-size: .85rem; }
tbody th { font-weight: 600; background: var(--ground); }
td { font-size: .92rem; }
.log { font-size: .82rem; color: var(--soft); }
.log span { display: block; }
.good { color: var(--good); } .warn { color: var(--warn); } .bad { color: var(--bad); font-weight: 700; }
.wide { overflow-x: auto; overflow-wrap: normal; } .wide table { min-width: 38rem; }
dt { font-weight: 600; } dd { margin: 0 0 .4rem 1.2rem; }
@media screen and (max-width: 48rem) {
  section table, section tbody, section tr, section th, section td { display: block; width: auto !important; }
  section thead { display: none; }
  section th, section td { border: 0; }
  section tr { border-bottom: 1px solid var(--line); padding: .3rem 0; }
  section td { padding: .1rem .6rem .1rem 7.4rem; text-indent: -6.8rem; }
  section td span { text-indent: 0; }
  section td::before { display: inline-block; width: 6.8rem; text-indent: 0; color: var(--soft); font-size: .82rem; }
  section td:nth-child(1)::before { content: "Answers"; } section td:nth-child(2)::before { content: "Customer gets"; }
  section td:nth-child(3)::before { content: "File"; } section td:nth-child(4)::before { content: "End"; }
  section td:nth-child(5)::before { content: "Way, hour"; }
  section td.log { text-indent: 0; } section td.log::before { content: "Error log"; margin-left: -6.8rem; float: left; }
  section td.log:empty { display: none; }
}
@media print {
  form, .screen { display: none; }
  html { font-size: 9pt; }
  body { max-width: none; padding: 0; }
  tr { break-inside: avoid; } h2, tbody th { break-after: avoid; }
}
)";

/// Filters the rows of that page. The filters stand behind "#" in its address.
inline constexpr std::string_view kTablePageScript = R"((() => {
  'use strict';
  const form = document.getElementById('filters');
  const shown = document.getElementById('shown');
  const controls = Array.from(form.querySelectorAll('select, input'));
  const list = (text) => text === '' ? [] : text.split(' ');
  const rows = [];
  for (const section of document.querySelectorAll('section')) {
    const title = section.querySelector('h2').textContent;
    for (const group of section.querySelectorAll('tbody')) {
      const faults = group.rows[0].textContent;
      for (const row of Array.from(group.rows).slice(1)) {
        rows.push({
          row, group, section,
          step: list(section.dataset.s), fault: list(group.dataset.f),
          end: [row.dataset.e], answer: list(row.dataset.a), runs: list(row.dataset.r).map(Number),
          text: [title, faults, row.textContent].join(' ').toLowerCase()
        });
      }
    }
  }

  /* The place of a chosen option, from 0; -1 for all. */
  const chosen = (name) => form.elements[name].selectedIndex - 1;
  const fits = (entry) => {
    const hasOption = (name) => chosen(name) === -1 || entry[name].includes(String(chosen(name)));
    const isRun = (run) => [-1, run >> 1].includes(chosen('way')) ? [-1, run % 2].includes(chosen('hour')) : false;
    const words = form.elements.text.value.toLowerCase().split(/\s+/);
    return ['step', 'fault', 'end', 'answer'].every(hasOption)
      ? entry.runs.some(isRun) ? words.every((word) => entry.text.includes(word)) : false : false;
  };

  const used = () => controls.filter((control) => control.value !== '');
  const show = (notes) => {
    const kept = new Set();
    const hits = rows.filter(fits);
    for (const entry of hits) kept.add(entry.row).add(entry.group).add(entry.section);
    for (const entry of rows) {
      for (const part of [entry.row, entry.group, entry.section]) part.hidden = !kept.has(part);
    }
    const filters = used().map((control) => control.labels[0].textContent + ': ' + control.value);
    shown.textContent = [hits.length + ' of ' + rows.length + ' rows shown' + (filters.length ? ' for ' : '') +
      filters.join('; ') + '.'].concat(notes).join(' ');
  };
  const clear = () => { for (const control of controls) control.value = ''; };

  /* From the controls into the address, and back. */
  const write = () => {
    history.replaceState(null, '', '#' + new URLSearchParams(used().map((control) => [control.name, control.value])));
    show([]);
  };
  const read = () => {
    const notes = [];
    clear();
    for (const [name, value] of new URLSearchParams(location.hash.includes('=') ? location.hash.slice(1) : '')) {
      const control = controls.find((one) => one.name === name);
      if (control) control.value = value;
      if (control ? control.value === value : false) continue;
      if (control) control.value = '';
      notes.push('The address asks for ' + name + ' "' + value + '", which is not on this page.');
    }
    show(notes);
  };

  form.addEventListener('input', write);
  form.addEventListener('submit', (event) => event.preventDefault());
  document.getElementById('all').addEventListener('click', () => { clear(); write(); });
  /* A link into the page leaves the filters in the address alone. */
  document.addEventListener('click', (event) => {
    const link = event.target.closest('a[href^="#"]');
    if (!link) return;
    event.preventDefault();
    document.getElementById(link.hash.slice(1)).scrollIntoView();
  });
  addEventListener('hashchange', read);
  form.hidden = false;
  read();
})();
)";

}  // namespace orvenza
