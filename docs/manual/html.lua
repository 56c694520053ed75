-- What the manual's Markdown needs to become a page.

-- The two manuals point at each other as Markdown files.
function Link(link)
  link.target = link.target:gsub("^(%l%l)%.md$", "%1.html")
  return link
end

-- The first heading is the page's title, which stands above the table of contents.
function Pandoc(document)
  document.meta.title = document.blocks:remove(1).content
  return document
end
